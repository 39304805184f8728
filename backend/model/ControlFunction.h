#pragma once

#include <cstdint>

#include "backend/values/Cell.h"
#include "backend/values/MidiMessage.h"
#include "backend/values/OrvMidiMessage.h"
#include "platform/Export.h"

namespace Backend::Controls
{
/// Whether two messages are the same kind of event: equal status, and for controllers equal number.
constexpr bool isSameEvent(const MidiEngine::MidiMessage& one, const MidiEngine::MidiMessage& other)
{
    return one.getStatus() == other.getStatus() && (!one.isControllerChange() || one.getD1() == other.getD1());
}

/// An event that a control sends. A control follows its first one.
struct ORV_API ControlFunction {
    MidiEngine::MidiMessage midiEvent{};
    std::int8_t output = -1;   ///< -1 for the layers or the default output
    std::int8_t channel = -1;  ///< -1 for the default channel
    std::int8_t zone = -1;     ///< -1 for none

    /// The event with `value`, marked with the cell of the control that sends it: 14 bits for a pitch bend, low bits
    /// first, the second data byte for a controller, otherwise the first.
    MidiEngine::OrvMidiMessage eventOf(std::int32_t value, const Cell& cell) const;

    /// The value of an event.
    static std::int32_t valueOf(const MidiEngine::OrvMidiMessage& event);

    /// Whether event, output, channel and zone are equal.
    bool agreesWith(const MidiEngine::OrvMidiMessage& event) const;

    bool operator==(const ControlFunction&) const = default;
};
}  // namespace Backend::Controls
