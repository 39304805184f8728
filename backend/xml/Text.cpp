#include "backend/xml/Text.h"

#include <charconv>

namespace Text
{
std::optional<int> parseInteger(std::string_view text)
{
    const auto start = text.find_first_not_of(" \t\n\v\f\r");
    if (start == std::string_view::npos) return std::nullopt;
    text.remove_prefix(start);
    if (text.front() == '+') {
        text.remove_prefix(1);
        if (text.starts_with('-')) return std::nullopt;
    }
    int value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc{}) return std::nullopt;
    return value;
}
}  // namespace Text
