#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Text functions for parsing attributes. None of them depends on the locale.
namespace Text
{
/// Removes the blanks (character 32 only) on both sides.
inline std::string_view trim(std::string_view text)
{
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

/// Splits `rest` at the first `delimiter`: returns the trimmed part before it, and leaves the part after it in `rest`.
/// Without a delimiter the whole text is returned and `rest` becomes empty.
inline std::string_view nextToken(std::string_view& rest, char delimiter)
{
    const auto at = rest.find(delimiter);
    const auto token = rest.substr(0, at);
    rest = at == std::string_view::npos ? std::string_view{} : rest.substr(at + 1);
    return trim(token);
}

/// Parses the decimal integer at the start of `text` like a stream: white space and a sign may precede it, and it ends
/// at the first character that is no digit. Nothing if there is no number, or it does not fit 32 bits.
std::optional<int> parseInteger(std::string_view text);
}  // namespace Text
