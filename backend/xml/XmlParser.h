#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace pugi
{
class xml_document;
}

/// Why a text was refused, and where.
struct XmlProblem {
    std::string reason;
    std::size_t offset = 0;  ///< bytes from the start of the text
};

/// Parses a text into `document` under the rules and limits of `XmlDocument`. Returns the first problem; `document`
/// must not be used then. Throws `std::bad_alloc` only.
std::optional<XmlProblem> parseXml(std::string_view text, pugi::xml_document& document);
