#pragma once

#include <cstdint>
#include <variant>

#include "backend/model/JoyAxisElementId.h"
#include "backend/model/JoyButtonElementId.h"
#include "backend/values/Key.h"
#include "backend/values/OrvMidiMessage.h"

namespace Backend
{
/// The kinds of events of which the next one is learned.
struct LearnKinds {
    bool key = false;
    bool midiEvent = false;
    bool joystickButton = false;
    bool joystickAxis = false;

    constexpr std::uint32_t getPacked() const
    {
        return (key ? 1u : 0u) | (midiEvent ? 2u : 0u) | (joystickButton ? 4u : 0u) | (joystickAxis ? 8u : 0u);
    }
    static constexpr LearnKinds fromPacked(std::uint32_t bits)
    {
        return {(bits & 1) != 0, (bits & 2) != 0, (bits & 4) != 0, (bits & 8) != 0};
    }

    constexpr bool operator==(const LearnKinds&) const = default;
};

/// What was learned.
struct Learned {
    std::uint32_t number = 0;  ///< of the request
    /// A key with its modifiers; a MIDI event with its input, channel and values (`MidiInput::MidiEvent::of` is the
    /// entry for it); a button or an axis of a joystick.
    std::variant<Key, MidiEngine::OrvMidiMessage, Joystick::JoyButtonElementId, Joystick::JoyAxisElementId> input{};
};
}  // namespace Backend
