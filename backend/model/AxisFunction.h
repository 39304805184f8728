#pragma once

#include <cstdint>
#include <iosfwd>

#include "backend/values/OrvMidiMessage.h"
#include "platform/Export.h"

class XmlElement;

namespace Backend::Joystick
{
/// The meaning of an axis value. Messages carry it as a number; an unknown number counts as `position`.
enum class AxisMode : std::uint16_t {
    position = 0,  ///< 0 to 65535 over the whole range of the axis
    raw = 1,       ///< 0 to 65535 as reported by a joystick; the offset applies
    finished = 2   ///< scaled already
};

/// An event that an axis sends: the position is scaled to `min` to `max` and becomes the data of the message.
struct ORV_API AxisFunction {
    MidiEngine::MidiMessage midiMessage{};  ///< an invalid one ends the list
    std::int8_t output = -1;                ///< -1 for none, as below
    std::int8_t channel = -1;
    std::int8_t zone = -1;
    std::int32_t min = 0;
    std::int32_t max = 127;   ///< below `min` to reverse the axis
    std::int32_t offset = 0;  ///< -127 to 127; a negative one cuts off that much at both ends of a joystick's axis

    /// From a "Function" element.
    static AxisFunction fromXml(const XmlElement& element);
    void writeXml(std::ostream& out, int indent) const;

    /// Scales a value of the axis to `min` to `max`.
    std::int32_t scaled(std::int32_t value, AxisMode mode) const;

    /// The event with a scaled value: in both data bytes of a pitch bend, the second of a controller, else the first.
    MidiEngine::OrvMidiMessage eventOf(std::int32_t value) const;

    bool operator==(const AxisFunction&) const = default;
};
}  // namespace Backend::Joystick
