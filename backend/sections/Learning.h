#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <set>

#include "backend/model/Learned.h"
#include "backend/sections/computerinput/ButtonEvent.h"
#include "platform/Export.h"

namespace Backend
{
/// Learns an event for the window: each path of input asks here before it plays one. A press that is learned is
/// swallowed with its release; the release of any other press is played. The backend thread's.
class ORV_API Learning
{
public:
    /// The movement of an axis that is learned, a quarter of its travel of 0 to 65535.
    static constexpr int AXIS_MOVEMENT = 16384;

    struct Owner {
        /// Learning has ended.
        std::function<void(const Learned& learned)> report;
        /// An axis was moved, but not learned: its position now is to be played.
        std::function<void(const Joystick::JoyAxisElementId& id, int value)> playAxis;
    };
    explicit Learning(Owner learningOwner) : owner(std::move(learningOwner)) {}

    /// In place of what is being learned; no kinds end it.
    void start(const LearnKinds& newKinds, std::uint32_t newNumber);

    // True for an event that is not to be played

    /// A modifier key is learned when it is released and no other key was pressed.
    bool takeKey(const Key& key, ButtonEvent event);
    bool takeButton(const Joystick::JoyButtonElementId& id, ButtonEvent event);
    /// The position of an axis that the device reports.
    bool takeAxis(const Joystick::JoyAxisElementId& id, int value);
    /// As `MidiEventConfigurationMap::asReceived` gives it. Releases, clock ticks and active sensing are never learned.
    bool takeMidiEvent(const MidiEngine::OrvMidiMessage& received);

    /// Whether MIDI events must come here: one is being learned, or a learned one is not yet released.
    bool needsMidiEvents() const { return kinds.midiEvent || !swallowedMidi.empty(); }

    /// Where an axis stands, if that is not to be learned.
    void setAxis(const Joystick::JoyAxisElementId& id, int value) { axes[id] = {.start = value, .position = value}; }
    /// An input that is disabled or gone releases nothing any more.
    void forgetMidiInput(int input);

private:
    struct Axis {
        int start = 0;  // where it stood when learning began; else `position`
        int position = 0;
    };

    void end();
    void report(decltype(Learned::input) input);

    const Owner owner;
    LearnKinds kinds;
    std::uint32_t number = 0;
    std::optional<Key> modifier;  // the last one, until another key is pressed
    std::map<Joystick::JoyAxisElementId, Axis> axes;

    // Presses that were swallowed, until they are released
    std::set<std::int32_t> swallowedKeys;
    std::set<Joystick::JoyButtonElementId> swallowedButtons;
    std::set<std::uint32_t> swallowedMidi;  // packed as MidiInput::MidiEvent
};
}  // namespace Backend
