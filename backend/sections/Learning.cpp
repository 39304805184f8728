#include "backend/sections/Learning.h"

#include <cstdlib>
#include <utility>

#include "backend/model/MidiEvent.h"

namespace Backend
{
using MidiEngine::MessageType;
using MidiEngine::OrvMidiMessage;

namespace
{
/// For the press and its release.
std::uint32_t pressOf(OrvMidiMessage event)
{
    if (event.isNote()) event.setToNoteOn();
    return MidiInput::MidiEvent::of(event).getPacked();
}

bool isLearnable(const OrvMidiMessage& event)
{
    return !event.isRelease() && !event.isTimingTick() && event.getStatus() != MessageType::activeSensing;
}

/// For an event that is not learned: whether it belongs to a press that was swallowed. A new press shows that the
/// release of that one was lost.
template <class Id>
bool belongsTo(std::set<Id>& swallowed, const Id& id, ButtonEvent event)
{
    if (event == ButtonEvent::repeat) return swallowed.contains(id);
    return swallowed.erase(id) > 0 && event == ButtonEvent::up;
}
}  // namespace

void Learning::start(const LearnKinds& newKinds, std::uint32_t newNumber)
{
    end();
    kinds = newKinds;
    number = newNumber;
}

void Learning::end()
{
    kinds = {};
    modifier.reset();
    for (auto& [id, axis] : axes)
        if (std::exchange(axis.start, axis.position) != axis.position) owner.playAxis(id, axis.position);
}

void Learning::report(decltype(Learned::input) input)
{
    end();
    owner.report({number, std::move(input)});
}

bool Learning::takeKey(const Key& key, ButtonEvent event)
{
    const bool isModifier = modifierOf(key.keyCode) != nullptr;
    if (kinds.key && event == ButtonEvent::down) {
        swallowedKeys.insert(key.keyCode);
        if (isModifier)
            modifier = key;
        else
            report(key);
        return true;
    }
    const bool isSwallowed = belongsTo(swallowedKeys, key.keyCode, event);
    if (isSwallowed && event == ButtonEvent::up && modifier && modifier->keyCode == key.keyCode) report(*modifier);
    return isSwallowed;
}

bool Learning::takeButton(const Joystick::JoyButtonElementId& id, ButtonEvent event)
{
    if (!kinds.joystickButton || event != ButtonEvent::down) return belongsTo(swallowedButtons, id, event);
    swallowedButtons.insert(id);
    report(id);
    return true;
}

/// One that was not seen before counts from where it is reported first.
bool Learning::takeAxis(const Joystick::JoyAxisElementId& id, int value)
{
    if (!kinds.joystickAxis) {
        setAxis(id, value);
        return false;
    }
    Axis& axis = axes.try_emplace(id, Axis{.start = value}).first->second;
    axis.position = value;
    if (std::abs(axis.position - axis.start) >= AXIS_MOVEMENT) {
        axis.start = axis.position;
        report(id);
    }
    return true;
}

bool Learning::takeMidiEvent(const OrvMidiMessage& received)
{
    if (kinds.midiEvent && isLearnable(received)) {
        if (received.isPress()) swallowedMidi.insert(pressOf(received));
        report(received);
        return true;
    }
    if (!received.isPress() && !received.isRelease()) return false;
    return belongsTo(swallowedMidi, pressOf(received), received.isPress() ? ButtonEvent::down : ButtonEvent::up);
}

void Learning::forgetMidiInput(int input)
{
    std::erase_if(swallowedMidi, [&](std::uint32_t press) { return static_cast<int>(press >> 24) == input; });
}
}  // namespace Backend
