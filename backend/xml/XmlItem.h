#pragma once

#include <concepts>
#include <string>

/// Any value that can stand in an attribute: it prints its text. What it prints is written as it is, so it is free of
/// the characters that `xmlEscape` replaces.
template <class Value>
concept XmlItem = requires(const Value& value)
{
    {
        value.toXmlString()
        } -> std::same_as<std::string>;
};
