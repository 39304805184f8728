#include "backend/model/Control.h"

#include <algorithm>
#include <ostream>

#include "backend/xml/XmlElement.h"
#include "backend/xml/XmlWriter.h"

namespace Backend::Controls
{
using MidiEngine::MidiMessage;

namespace
{
ControlFunction readFunction(const XmlElement& element)
{
    return {.midiEvent = MidiMessage::fromXmlString(element.getAttribute("midiEvent")),
            .output = element.getByteAttribute("output", -1),
            .channel = element.getByteAttribute("channel", -1),
            .zone = element.getByteAttribute("zone", -1)};
}
}  // namespace

Control Control::fromXml(const XmlElement& element)
{
    Control control;
    control.cell = Cell::fromXmlString(element.getAttribute("cell"));
    control.type = ControlType::fromXmlString(element.getAttribute("type"));
    control.name = element.getAttribute("name");
    control.min = element.getIntAttribute("min", control.min);
    control.max = element.getIntAttribute("max", control.max);
    control.store(element.getIntAttribute("value", control.value));
    control.release = element.getIntAttribute("release", control.release);
    control.autoSend = element.getBoolAttribute("autoSend", control.autoSend);
    control.size = element.getIntAttribute("size", control.size);
    forEachElement(element, [&](const XmlElement& child) {
        if (child.getTagName() == "Function") control.functions.push_back(readFunction(child));
    });
    return control;
}

void Control::writeXml(std::ostream& out, int indent) const
{
    const std::string tabs(static_cast<std::size_t>(indent), '\t');
    out << tabs << xmlOpenTag("Control") << xmlItemAttribute("cell", cell) << xmlItemAttribute("type", type)
        << xmlStringAttribute("name", name) << xmlIntAttribute("value", value) << xmlIntAttribute("min", min)
        << xmlIntAttribute("max", max) << xmlIntAttribute("release", release) << xmlBoolAttribute("autoSend", autoSend)
        << xmlIntAttribute("size", size) << xmlCloseOpen() << '\n';
    for (const ControlFunction& function : functions)
        out << tabs << '\t' << xmlOpenTag("Function") << xmlItemAttribute("midiEvent", function.midiEvent)
            << xmlCharAttribute("output", function.output) << xmlCharAttribute("channel", function.channel)
            << xmlCharAttribute("zone", function.zone) << xmlCloseEmpty() << '\n';
    out << tabs << xmlEndTag("Control") << '\n';
}

void Control::store(std::int64_t newValue)
{
    const auto [low, high] = std::minmax(min, max);
    value = static_cast<std::int32_t>(std::clamp<std::int64_t>(newValue, low, high));
}
}  // namespace Backend::Controls
