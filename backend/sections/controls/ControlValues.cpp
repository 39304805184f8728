// Values of controls: how they are set and sent, singly, with bank and program, linked, and by the events that they
// follow.

#include <algorithm>
#include <array>
#include <limits>

#include "api/OrvMessageManager.h"
#include "backend/sections/controls/ControlManager.h"

namespace Backend::Controls
{
using MidiEngine::MessageType;
using MidiEngine::MidiMessage;
using MidiEngine::OrvMidiMessage;
using Kind = SelectControlType::Kind;

namespace
{
constexpr int BANK_MSB = 0;
constexpr int BANK_LSB = 32;

/// A synthesizer applies a bank select at the next program change, so they are always sent in this order.
constexpr std::array PROGRAM_ORDER{MidiMessage(MessageType::controllerChange, BANK_MSB),
                                   MidiMessage(MessageType::controllerChange, BANK_LSB),
                                   MidiMessage(MessageType::programChange)};

bool isOfProgram(const MidiMessage& event)
{
    return std::ranges::any_of(PROGRAM_ORDER, [&](const MidiMessage& part) { return isSameEvent(part, event); });
}

bool haveSameRoute(const ControlFunction& one, const ControlFunction& other)
{
    return one.output == other.output && one.channel == other.channel && one.zone == other.zone;
}
}  // namespace

void ControlManager::changeControl(const SelectControlType& select, const RelativeFixedValue& amount)
{
    Control* control = findTarget(select);
    if (control == nullptr) return;
    const auto value = std::clamp<std::int64_t>(amount.appliedTo(control->value), std::numeric_limits<int>::min(),
                                                std::numeric_limits<int>::max());
    setControlValue(*control, static_cast<std::int32_t>(value), true, true);
}

void ControlManager::sendControlData(const SelectControlType& select)
{
    if (select.kind == Kind::all) return sendAll(false);
    if (const Control* control = findTarget(select)) sendControl(*control);
}

void ControlManager::sendAll(bool onlyAutoSend)
{
    getContent().forEach([&](const Control& control) {
        if (control.autoSend || !onlyAutoSend) sendControl(control);
    });
}

void ControlManager::sendControl(const Control& control)
{
    if (!control.type.sends()) return;
    for (const ControlFunction& function : control.functions)
        orv.getOrvMessageManager().postPlayMidi(function.eventOf(control.value, control.cell));
}

void ControlManager::setControlValue(Control& control, std::int32_t value, bool notify, bool send)
{
    const std::int64_t before = control.value;
    control.store(value);
    if (send) sendInOrder(control);
    if (notify) notifyGuiOfValue(control);
    if (control.selected) moveLinked(control, control.value - before, send);
}

void ControlManager::sendInOrder(const Control& control)
{
    if (control.functions.empty()) return;
    const ControlFunction& own = control.functions.front();
    if (!isOfProgram(own.midiEvent)) return sendControl(control);
    for (const MidiMessage& part : PROGRAM_ORDER) {
        if (isSameEvent(part, own.midiEvent)) {
            sendControl(control);
            continue;
        }
        getContent().forEach([&](const Control& other) {
            if (other.functions.empty()) return;
            const ControlFunction& its = other.functions.front();
            if (isSameEvent(part, its.midiEvent) && haveSameRoute(own, its)) sendControl(other);
        });
    }
}

void ControlManager::moveLinked(const Control& moved, std::int64_t delta, bool send)
{
    const auto forEachOther = [&](auto&& visit) {
        edit().forEach([&](Control& control) {
            if (control.selected && control.cell != moved.cell) visit(control);
        });
    };
    bool hasOthers = false;
    std::int64_t lowest = ControlLink::HIGHEST;
    std::int64_t highest = ControlLink::LOWEST;
    forEachOther([&](const Control& control) {
        hasOthers = true;
        lowest = std::min<std::int64_t>(lowest, control.value);
        highest = std::max<std::int64_t>(highest, control.value);
    });
    if (!hasOthers) return;
    const std::int64_t distance = link.follow(delta, moved.value, lowest, highest);
    if (distance == 0) return;
    forEachOther([&](Control& control) {
        control.store(control.value + distance);
        if (send) sendControl(control);
        notifyGuiOfValue(control);
    });
}

void ControlManager::updateControls(const OrvMidiMessage& event)
{
    const Control* origin = getContent().findElement(event.getFromControl());
    edit().forEach([&](Control& control) {
        if (&control == origin || control.functions.empty()) return;
        if (origin != nullptr && origin->selected && control.selected) return;  // moved by the link
        if (control.functions.front().agreesWith(event))
            setControlValue(control, ControlFunction::valueOf(event), true, false);
    });
}
}  // namespace Backend::Controls
