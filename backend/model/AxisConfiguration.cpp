#include "backend/model/AxisConfiguration.h"

#include <ostream>
#include <string>

#include "backend/xml/XmlElement.h"
#include "backend/xml/XmlWriter.h"

namespace Backend::Joystick
{
AxisConfiguration AxisConfiguration::fromXml(const XmlElement& element)
{
    AxisConfiguration configuration;
    configuration.id = {element.getIntAttribute("joystick", -1), findAxis(element.getAttribute("axis"))};
    forEachElement(element, [&](const XmlElement& child) {
        if (child.getTagName() == "Function") configuration.functions.push_back(AxisFunction::fromXml(child));
    });
    return configuration;
}

void AxisConfiguration::writeXml(std::ostream& out, int indent) const
{
    const std::string tabs(static_cast<std::size_t>(indent), '\t');
    out << tabs << xmlOpenTag("Axis") << xmlIntAttribute("joystick", id.joystick)
        << xmlStringAttribute("axis", getAxisName(id.axis)) << xmlCloseOpen() << '\n';
    for (const AxisFunction& function : functions) function.writeXml(out, indent + 1);
    out << tabs << xmlEndTag("Axis") << '\n';
}
}  // namespace Backend::Joystick
