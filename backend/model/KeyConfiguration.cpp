#include "backend/model/KeyConfiguration.h"

#include "backend/xml/XmlWriter.h"

namespace Backend::ComputerInput
{
KeyConfiguration KeyConfiguration::fromXml(const XmlElement& element, const FunctionManagement::FunctionFactory& create)
{
    KeyConfiguration configuration(Key::fromXmlString(element.getAttribute("id")));
    configuration.global = element.getBoolAttribute("global", true);
    configuration.readEntries(element, create);
    return configuration;
}

void KeyConfiguration::writeXml(std::ostream& out, int indent) const
{
    const std::string tabs(static_cast<std::size_t>(indent), '\t');
    out << tabs << xmlOpenTag("Key") << xmlItemAttribute("id", key) << xmlBoolAttribute("global", global)
        << xmlCloseOpen() << '\n';
    writeEntries(out, indent);
    out << tabs << xmlEndTag("Key") << '\n';
}
}  // namespace Backend::ComputerInput
