#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "backend/xml/XmlItem.h"

// Pieces of XML text. The caller writes them to a stream, one tag on a line after a TAB for each level of nesting: none
// of these functions ends or indents a line. Other programs read the files line by line, so this form must be kept.

/// The XML declaration.
std::string xmlHeader();
/// "<name"; attributes and `xmlCloseOpen` or `xmlCloseEmpty` follow.
std::string xmlOpenTag(std::string_view name);
/// "<name>"
std::string xmlStartTag(std::string_view name);
/// ">", which ends the tag of `xmlOpenTag`.
std::string xmlCloseOpen();
/// "/>", which ends it as an empty element.
std::string xmlCloseEmpty();
/// "</name>"
std::string xmlEndTag(std::string_view name);

// Attributes: a blank, the name, and the value in double quotes

std::string xmlBoolAttribute(std::string_view name, bool value);
/// As a number, not a letter.
std::string xmlCharAttribute(std::string_view name, std::int8_t value);
std::string xmlShortAttribute(std::string_view name, std::int16_t value);
std::string xmlIntAttribute(std::string_view name, std::int32_t value);
/// Any text, escaped.
std::string xmlStringAttribute(std::string_view name, std::string_view text);
/// The text that the value prints, not escaped.
std::string xmlItemAttribute(std::string_view name, const XmlItem auto& value);

/// Replaces < > & ' " by their entities; all other bytes stay.
std::string xmlEscape(std::string_view text);

/// The text as it is; used by the functions above.
std::string xmlAttribute(std::string_view name, std::string_view text);

std::string xmlItemAttribute(std::string_view name, const XmlItem auto& value)
{
    return xmlAttribute(name, value.toXmlString());
}
