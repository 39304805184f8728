#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Export.h"

namespace Backend
{
/// A part of a text, in bytes from its start.
struct TextSpan {
    std::size_t begin = 0;
    std::size_t end = 0;  ///< the byte after the last one

    std::string_view of(std::string_view text) const { return text.substr(begin, end - begin); }
    /// Adds a difference of sizes, which may have wrapped.
    void moveBy(std::size_t bytes)
    {
        begin += bytes;
        end += bytes;
    }

    bool operator==(const TextSpan&) const = default;
};

/// The positions of those children of a document's root that have a certain tag, and of the end of the root.
struct ElementLayout {
    std::vector<TextSpan> elements;  ///< from "<" to ">", in the order of the document
    std::string rootName;
    TextSpan rootEnd;  ///< the root's end tag; of an empty root the "/>"

    bool operator==(const ElementLayout&) const = default;
};

/// Finds the elements by their tags, without reading their content. Comments, processing instructions, character data
/// and quoted text are skipped, even if they look like tags. Nothing if start and end tags do not match; whether the
/// text is a well-formed document is checked by `XmlDocument`.
ORV_API std::optional<ElementLayout> scanElements(std::string_view text, std::string_view tag);

/// The span extended to the whole of its first and last line, with the line end, as far as these contain only blanks
/// and TABs besides.
ORV_API TextSpan withItsLines(std::string_view text, TextSpan span);
}  // namespace Backend
