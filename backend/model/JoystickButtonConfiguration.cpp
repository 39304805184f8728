#include "backend/model/JoystickButtonConfiguration.h"

#include "backend/xml/XmlWriter.h"

namespace Backend::Joystick
{
JoystickButtonConfiguration JoystickButtonConfiguration::fromXml(const XmlElement& element,
                                                                 const FunctionManagement::FunctionFactory& create)
{
    JoystickButtonConfiguration configuration(
        {element.getIntAttribute("joystick", -1), element.getIntAttribute("button", -1)});
    configuration.readEntries(element, create);
    return configuration;
}

void JoystickButtonConfiguration::writeXml(std::ostream& out, int indent) const
{
    const std::string tabs(static_cast<std::size_t>(indent), '\t');
    out << tabs << xmlOpenTag("Button") << xmlIntAttribute("joystick", id.joystick)
        << xmlIntAttribute("button", id.button) << xmlCloseOpen() << '\n';
    writeEntries(out, indent);
    out << tabs << xmlEndTag("Button") << '\n';
}
}  // namespace Backend::Joystick
