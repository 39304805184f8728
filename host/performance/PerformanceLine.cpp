#include "host/performance/PerformanceLine.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "host/common/InputError.h"
#include "platform/Path.h"
#include "platform/Utf8.h"

namespace Host
{
namespace
{
constexpr std::string_view BLANKS = " \t";

bool isBlank(char character) { return BLANKS.find(character) != std::string_view::npos; }

std::string_view withoutComment(std::string_view text)
{
    bool inQuotes = false;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == '"') inQuotes = !inQuotes;
        if (text[at] == '#' && !inQuotes && (at == 0 || isBlank(text[at - 1]))) return text.substr(0, at);
    }
    return text;
}

std::string_view trimmed(std::string_view text)
{
    text.remove_prefix(std::min(text.find_first_not_of(BLANKS), text.size()));
    return text.substr(0, text.find_last_not_of(BLANKS) + 1);
}

/// Control characters as `?`, so that a message stays one line that any terminal can show.
std::string printable(std::string text)
{
    std::ranges::replace_if(
        text, [](char character) { return static_cast<unsigned char>(character) < 0x20 || character == 0x7F; }, '?');
    return text;
}

/// True if the whole word is a number of that base.
bool parseWhole(std::string_view word, int base, int& value)
{
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value, base);
    return error == std::errc() && end == word.data() + word.size();
}
}  // namespace

PerformanceLine::PerformanceLine(std::string_view line, const std::string& place, std::filesystem::path filesIn)
    : text(line), where(place), folder(std::move(filesIn))
{
    if (text.find('\0') != std::string_view::npos) refuse("the line holds a NUL byte");
    if (!isUtf8(text)) refuse("the line is not UTF-8 text");
    if (text.ends_with('\r')) text.remove_suffix(1);
    text = trimmed(withoutComment(text));
}

std::string_view PerformanceLine::word(std::string_view name)
{
    if (text.empty()) refuse(std::string(name) + " is missing");
    const std::string_view word = text.substr(0, text.find_first_of(BLANKS));
    text = trimmed(text.substr(word.size()));
    return word;
}

std::string_view PerformanceLine::rest(std::string_view name)
{
    if (text.empty()) refuse(std::string(name) + " is missing");
    return std::exchange(text, {});
}

std::filesystem::path PerformanceLine::file(std::string_view name) const { return folder / pathOf(name); }

int PerformanceLine::number(std::string_view name, int lowest, int highest)
{
    const std::string_view given = word(name);
    int value = 0;
    if (!parseWhole(given, 10, value) || value < lowest || value > highest)
        refuse(std::string(name) + " is " + quoted(given) + ", not a number from " + std::to_string(lowest) + " to " +
               std::to_string(highest));
    return value;
}

std::pair<int, int> PerformanceLine::twoNumbers(std::string_view name, int highest)
{
    const std::string_view given = word(name);
    const auto comma = std::min(given.find(','), given.size());
    const auto isNumber = [&](std::string_view digits, int& value) {
        return parseWhole(digits, 10, value) && value >= 0 && value <= highest;
    };
    std::pair<int, int> values;
    if (!isNumber(given.substr(0, comma), values.first) ||
        !isNumber(given.substr(std::min(comma + 1, given.size())), values.second))
        refuse(std::string(name) + " is " + quoted(given) + ", not two numbers from 0 to " + std::to_string(highest) +
               " with a comma between them");
    return values;
}

std::uint8_t PerformanceLine::hexadecimalByte(std::string_view name)
{
    const std::string_view given = word(name);
    int value = -1;
    if (given.size() > 2 || !parseWhole(given, 16, value) || value < 0)
        refuse(std::string(name) + " is " + quoted(given) + ", not a byte of one or two hexadecimal digits");
    return static_cast<std::uint8_t>(value);
}

void PerformanceLine::end() const
{
    if (!text.empty()) refuse("unexpected " + quoted(text) + " at the end");
}

void PerformanceLine::refuse(const std::string& reason) const { throw InputError(where + ": " + printable(reason)); }

std::string quoted(std::string_view word)
{
    constexpr std::size_t LONGEST = 40;
    std::size_t size = std::min(word.size(), LONGEST);
    while (size < word.size() && (word[size] & 0xC0) == 0x80) --size;  // not within a character
    return "'" + printable(std::string(word.substr(0, size))) + (size < word.size() ? "...'" : "'");
}
}  // namespace Host
