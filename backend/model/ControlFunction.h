#pragma once

#include <cstdint>

#include "backend/values/Cell.h"
#include "backend/values/MidiMessage.h"
#include "backend/values/OrvMidiMessage.h"
#include "platform/Export.h"

namespace Backend::Controls
{
/// Whether two messages are the same kind of event: one status, and for controllers one number.
constexpr bool isSameEvent(const MidiEngine::MidiMessage& one, const MidiEngine::MidiMessage& other)
{
    return one.getStatus() == other.getStatus() && (!one.isControllerChange() || one.getD1() == other.getD1());
}

/// An event that a control sends, and the first of them it follows.
struct ORV_API ControlFunction {
    MidiEngine::MidiMessage midiEvent{};
    std::int8_t output = -1;   ///< -1 for the layers or the default output
    std::int8_t channel = -1;  ///< -1 for the default channel
    std::int8_t zone = -1;     ///< -1 for none

    /// The event with a value in it, marked as coming from the control of that cell: a pitch bend takes 14 bits, low
    /// ones first, a controller its second data byte, anything else its first.
    MidiEngine::OrvMidiMessage eventOf(std::int32_t value, const Cell& cell) const;

    /// The value that an event of this kind carries.
    static std::int32_t valueOf(const MidiEngine::OrvMidiMessage& event);

    /// Whether event, output, channel and zone all agree.
    bool agreesWith(const MidiEngine::OrvMidiMessage& event) const;

    bool operator==(const ControlFunction&) const = default;
};
}  // namespace Backend::Controls
