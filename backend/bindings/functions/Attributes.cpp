#include "backend/bindings/functions/Attributes.h"

#include "backend/xml/XmlWriter.h"

namespace Backend
{
void writeAttribute(std::ostream& out, std::string_view name, const std::string& text)
{
    out << xmlStringAttribute(name, text);
}

void writeAttribute(std::ostream& out, std::string_view name, std::int8_t number)
{
    out << xmlCharAttribute(name, number);
}

void writeItemAttribute(std::ostream& out, std::string_view name, const std::string& text)
{
    out << xmlAttribute(name, text);
}

void startElement(std::ostream& out, int indent, std::string_view typeName)
{
    out << std::string(static_cast<std::size_t>(indent), '\t') << xmlOpenTag(typeName);
}

void endElement(std::ostream& out) { out << xmlCloseEmpty() << '\n'; }
}  // namespace Backend
