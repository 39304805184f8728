#include "backend/xml/XmlWriter.h"

namespace
{
std::string_view entityOf(const char& character)
{
    switch (character) {
        case '<':
            return "&lt;";
        case '>':
            return "&gt;";
        case '&':
            return "&amp;";
        case '\'':
            return "&apos;";
        case '"':
            return "&quot;";
        default:
            return {&character, 1};
    }
}
}  // namespace

std::string xmlHeader() { return R"(<?xml version="1.0" encoding="utf-8"?>)"; }

std::string xmlOpenTag(std::string_view name) { return std::string("<").append(name); }

std::string xmlStartTag(std::string_view name) { return xmlOpenTag(name) + xmlCloseOpen(); }

std::string xmlCloseOpen() { return ">"; }

std::string xmlCloseEmpty() { return "/>"; }

std::string xmlEndTag(std::string_view name) { return std::string("</").append(name).append(">"); }

std::string xmlBoolAttribute(std::string_view name, bool value) { return xmlAttribute(name, value ? "true" : "false"); }

std::string xmlCharAttribute(std::string_view name, std::int8_t value) { return xmlIntAttribute(name, value); }

std::string xmlShortAttribute(std::string_view name, std::int16_t value) { return xmlIntAttribute(name, value); }

std::string xmlIntAttribute(std::string_view name, std::int32_t value)
{
    return xmlAttribute(name, std::to_string(value));
}

std::string xmlStringAttribute(std::string_view name, std::string_view text)
{
    return xmlAttribute(name, xmlEscape(text));
}

std::string xmlEscape(std::string_view text)
{
    std::string escaped;
    escaped.reserve(text.size());
    for (const char& character : text) escaped += entityOf(character);
    return escaped;
}

std::string xmlAttribute(std::string_view name, std::string_view text)
{
    return std::string(" ").append(name).append("=\"").append(text).append("\"");
}
