#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Export.h"

namespace Backend
{
/// A piece of a text, in bytes from its start.
struct TextSpan {
    std::size_t begin = 0;
    std::size_t end = 0;  ///< after the last byte

    std::string_view of(std::string_view text) const { return text.substr(begin, end - begin); }
    /// By a difference of sizes, which may have wrapped.
    void moveBy(std::size_t bytes)
    {
        begin += bytes;
        end += bytes;
    }

    bool operator==(const TextSpan&) const = default;
};

/// Where the children of a document's root stand that have a certain tag, and where the root ends.
struct ElementLayout {
    std::vector<TextSpan> elements;  ///< from "<" to ">", in order
    std::string rootName;
    TextSpan rootEnd;  ///< the root's end tag; of an empty root the "/>"

    bool operator==(const ElementLayout&) const = default;
};

/// Finds the elements by going through the tags, without reading what they say. Comments, instructions, character data
/// and quoted text count as nothing, however much they look like tags. None if the tags do not add up; whether the text
/// is a document is for `XmlDocument` to say.
ORV_API std::optional<ElementLayout> scanElements(std::string_view text, std::string_view tag);

/// The span with the rest of its first and its last line, as far as nothing else stands on them: blanks, TABs, and the
/// line's end.
ORV_API TextSpan withItsLines(std::string_view text, TextSpan span);
}  // namespace Backend
