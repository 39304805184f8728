#pragma once

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

/// One row of the table in which the words of an enumeration are spelt. Reading and printing use the same table:
/// `constexpr auto WORDS = std::to_array<Word<Kind>>({{Kind::up, "up"}, ...});`
template <class Enum>
struct Word {
    Enum value;
    std::string_view text;
};

/// The value that exactly `text` stands for, none if it is not in the table.
template <class Enum, std::size_t SIZE>
constexpr std::optional<Enum> readWord(const std::array<Word<Enum>, SIZE>& words, std::string_view text)
{
    const auto row = std::ranges::find(words, text, &Word<Enum>::text);
    return row == words.end() ? std::nullopt : std::optional(row->value);
}

/// The word of a value, none if it has no word.
template <class Enum, std::size_t SIZE>
constexpr std::optional<std::string_view> printWord(const std::array<Word<Enum>, SIZE>& words, Enum value)
{
    const auto row = std::ranges::find(words, value, &Word<Enum>::value);
    return row == words.end() ? std::nullopt : std::optional(row->text);
}
