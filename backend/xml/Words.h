#pragma once

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

/// A row of a table with the words of an enumeration. Reading and printing use the same table: `constexpr auto WORDS =
/// std::to_array<Word<Kind>>({{Kind::up, "up"}, ...});`
template <class Enum>
struct Word {
    Enum value;
    std::string_view text;
};

/// The value of exactly that word, nothing if it is not in the table.
template <class Enum, std::size_t SIZE>
constexpr std::optional<Enum> readWord(const std::array<Word<Enum>, SIZE>& words, std::string_view text)
{
    const auto row = std::ranges::find(words, text, &Word<Enum>::text);
    return row == words.end() ? std::nullopt : std::optional(row->value);
}

/// The word of a value, empty if it is not in the table.
template <class Enum, std::size_t SIZE>
constexpr std::optional<std::string_view> printWord(const std::array<Word<Enum>, SIZE>& words, Enum value)
{
    const auto row = std::ranges::find(words, value, &Word<Enum>::value);
    return row == words.end() ? std::nullopt : std::optional(row->text);
}
