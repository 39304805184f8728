#pragma once

#include <cstdint>
#include <iosfwd>

#include "backend/values/OrvMidiMessage.h"
#include "platform/Export.h"

class XmlElement;

namespace Backend::Joystick
{
/// What a value of an axis is. It travels as a number, and any other number counts as `position`.
enum class AxisMode : std::uint16_t {
    position = 0,  ///< 0 to 65535 over the whole range of the axis
    raw = 1,       ///< 0 to 65535 as a joystick gives it; the offset counts
    finished = 2   ///< scaled already
};

/// One event that an axis sends: the value between `min` and `max` becomes the data of the message.
struct ORV_API AxisFunction {
    MidiEngine::MidiMessage midiMessage{};  ///< one that is not valid ends the list it stands in
    std::int8_t output = -1;                ///< -1 for none, as below
    std::int8_t channel = -1;
    std::int8_t zone = -1;
    std::int32_t min = 0;
    std::int32_t max = 127;   ///< below `min` for an axis that runs backwards
    std::int32_t offset = 0;  ///< -127 to 127; below 0 that much of a joystick's way is cut off at both its ends

    /// From a "Function" element.
    static AxisFunction fromXml(const XmlElement& element);
    void writeXml(std::ostream& out, int indent) const;

    /// The value between `min` and `max` that a value of the axis stands for.
    std::int32_t scaled(std::int32_t value, AxisMode mode) const;

    /// The event of a scaled value: both data bytes of a pitch bend, the second of a controller, otherwise the first.
    MidiEngine::OrvMidiMessage eventOf(std::int32_t value) const;

    bool operator==(const AxisFunction&) const = default;
};
}  // namespace Backend::Joystick
