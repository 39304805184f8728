#pragma once

#include <optional>
#include <string>
#include <string_view>

/// The text helpers that every attribute parser uses. None of them depends on the locale.
namespace Text
{
/// Without the blanks (character 32 only) on both sides.
inline std::string_view trim(std::string_view text)
{
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

/// Cuts `rest` at the first `delimiter`: the trimmed part before it is the token, the part after it stays in `rest`.
/// Without a delimiter everything is the token and `rest` becomes empty.
inline std::string_view nextToken(std::string_view& rest, char delimiter)
{
    const auto at = rest.find(delimiter);
    const auto token = rest.substr(0, at);
    rest = at == std::string_view::npos ? std::string_view{} : rest.substr(at + 1);
    return trim(token);
}

/// The decimal integer at the start of `text`, as stream extraction reads it: white space and a sign may stand before
/// it, and it ends where the digits end. None if there is no number or it does not fit 32 bits.
std::optional<int> parseInteger(std::string_view text);
}  // namespace Text
