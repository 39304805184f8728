#include "backend/model/AxisFunction.h"

#include <algorithm>
#include <ostream>
#include <string>

#include "backend/values/Scaling.h"
#include "backend/xml/XmlElement.h"
#include "backend/xml/XmlWriter.h"

namespace Backend::Joystick
{
using MidiEngine::MidiMessage;
using MidiEngine::OrvMidiMessage;

namespace
{
constexpr std::int32_t HIGHEST_POSITION = 65535;
constexpr std::int32_t HIGHEST_OFFSET = 127;
constexpr unsigned int DATA_BITS = 7;
constexpr std::int32_t DATA_MASK = 0x7F;
constexpr Cell NO_CELL{};
}  // namespace

AxisFunction AxisFunction::fromXml(const XmlElement& element)
{
    AxisFunction function;
    function.midiMessage = MidiMessage::fromXmlString(element.getAttribute("midiEvent"));
    function.output = element.getByteAttribute("output", function.output);
    function.channel = element.getByteAttribute("channel", function.channel);
    function.zone = element.getByteAttribute("zone", function.zone);
    function.min = element.getIntAttribute("min", function.min);
    function.max = element.getIntAttribute("max", function.max);
    function.offset = element.getIntAttribute("offset", function.offset);
    return function;
}

void AxisFunction::writeXml(std::ostream& out, int indent) const
{
    out << std::string(static_cast<std::size_t>(indent), '\t') << xmlOpenTag("Function")
        << xmlItemAttribute("midiEvent", midiMessage) << xmlCharAttribute("output", output)
        << xmlCharAttribute("channel", channel) << xmlCharAttribute("zone", zone) << xmlIntAttribute("min", min)
        << xmlIntAttribute("max", max) << xmlIntAttribute("offset", offset) << xmlCloseEmpty() << '\n';
}

std::int32_t AxisFunction::scaled(std::int32_t value, AxisMode mode) const
{
    if (mode != AxisMode::finished) {
        const std::int32_t shift =
            mode == AxisMode::raw ? scaleRange(0, HIGHEST_OFFSET, offset, 0, HIGHEST_POSITION) : 0;
        value = scaleRange(std::max(0, -shift), std::min(HIGHEST_POSITION, HIGHEST_POSITION + shift), value, min, max);
    }
    return std::clamp(value, std::min(min, max), std::max(min, max));
}

OrvMidiMessage AxisFunction::eventOf(std::int32_t value) const
{
    OrvMidiMessage event(midiMessage, output, channel, zone, NO_CELL);
    if (event.isControllerChange())
        event.setD2(value);
    else
        event.setD1(event.isPitchBend() ? value & DATA_MASK : value);
    if (event.isPitchBend()) event.setD2(value >> DATA_BITS & DATA_MASK);
    return event;
}
}  // namespace Backend::Joystick
