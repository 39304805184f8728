#pragma once

#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>

#include "backend/xml/XmlElement.h"
#include "backend/xml/XmlItem.h"

namespace Backend
{
/// A parameter that is stored in an attribute of its owner's element.
template <class Owner, class Value>
struct Attribute {
    std::string_view name;
    Value Owner::*member;
};
template <class Owner, class Value>
Attribute(const char*, Value Owner::*) -> Attribute<Owner, Value>;

// More than a hundred classes write themselves with these, so the code is not in the header.
void writeAttribute(std::ostream& out, std::string_view name, const std::string& text);
void writeAttribute(std::ostream& out, std::string_view name, std::int8_t number);
/// Text that needs no escaping.
void writeItemAttribute(std::ostream& out, std::string_view name, const std::string& text);
void writeAttribute(std::ostream& out, std::string_view name, const XmlItem auto& value)
{
    writeItemAttribute(out, name, value.toXmlString());
}

/// A missing attribute leaves the value unchanged.
inline void readAttribute(const XmlElement& element, std::string_view name, std::string& text)
{
    text = element.getAttribute(name, text);
}
inline void readAttribute(const XmlElement& element, std::string_view name, std::int8_t& number)
{
    number = element.getByteAttribute(name, number);
}
template <XmlItem Value>
void readAttribute(const XmlElement& element, std::string_view name, Value& value)
{
    value = Value::fromXmlString(element.getAttribute(name, value.toXmlString()));
}

/// Start and end the line of a function's or a translation's element.
void startElement(std::ostream& out, int indent, std::string_view typeName);
void endElement(std::ostream& out);

/// Reads, writes and compares the parameters of a family: `Family::attributes(use)` calls `use` with an Attribute for
/// each of them, in the order in which they are written.
template <class Family>
void writeAttributes(std::ostream& out, const Family& family)
{
    Family::attributes([&](const auto&... row) { (writeAttribute(out, row.name, family.*row.member), ...); });
}
template <class Family>
void readAttributes(const XmlElement& element, Family& family)
{
    Family::attributes([&](const auto&... row) { (readAttribute(element, row.name, family.*row.member), ...); });
}
template <class Family>
bool hasSameAttributes(const Family& one, const Family& other)
{
    return Family::attributes([&](const auto&... row) { return ((one.*row.member == other.*row.member) && ...); });
}
}  // namespace Backend
