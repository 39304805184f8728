#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "backend/xml/XmlItem.h"

// The pieces of an XML text. The writer of a file streams them out itself, one tag on a line after a TAB for each
// level of nesting: none of them ends a line or indents. Other readers of these files go by the lines, so keep to that.

/// The declaration that a file begins with.
std::string xmlHeader();
/// "<name"; attributes follow.
std::string xmlOpenTag(std::string_view name);
/// "<name>"
std::string xmlStartTag(std::string_view name);
/// ">", which ends what `xmlOpenTag` began.
std::string xmlCloseOpen();
/// "/>", which ends it as an empty element.
std::string xmlCloseEmpty();
/// "</name>"
std::string xmlEndTag(std::string_view name);

// Attributes: a blank, the name, and the value in double quotes.

std::string xmlBoolAttribute(std::string_view name, bool value);
/// A number, never a letter.
std::string xmlCharAttribute(std::string_view name, std::int8_t value);
std::string xmlShortAttribute(std::string_view name, std::int16_t value);
std::string xmlIntAttribute(std::string_view name, std::int32_t value);
/// Any text, escaped.
std::string xmlStringAttribute(std::string_view name, std::string_view text);
/// What the value prints, not escaped.
std::string xmlItemAttribute(std::string_view name, const XmlItem auto& value);

/// The text with < > & ' " replaced by their entities; all other bytes pass.
std::string xmlEscape(std::string_view text);

/// The text as it stands: what the attributes above are made of.
std::string xmlAttribute(std::string_view name, std::string_view text);

std::string xmlItemAttribute(std::string_view name, const XmlItem auto& value)
{
    return xmlAttribute(name, value.toXmlString());
}
