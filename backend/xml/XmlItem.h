#pragma once

#include <concepts>
#include <string>

/// Any value that can be written in an attribute: it prints its text. The text is not escaped, so it must not contain
/// the characters that `xmlEscape` replaces.
template <class Value>
concept XmlItem = requires(const Value& value)
{
    {
        value.toXmlString()
        } -> std::same_as<std::string>;
};
