#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <utility>

namespace Host
{
/// One line of a performance, taken off word by word from the left. A carriage return at its end and a comment are cut
/// away: `#` starts one at the start of the line or after a blank (space or tab), but not between double quotes. What
/// is wrong is an InputError that begins with `where`. Borrows the text.
class PerformanceLine
{
public:
    /// Files are named relative to `folder`. Throws InputError if the line is not UTF-8 or holds a NUL byte.
    PerformanceLine(std::string_view text, const std::string& where, std::filesystem::path folder = {});

    /// Nothing left but blanks.
    bool empty() const { return text.empty(); }

    /// The next word; `name` is what the message calls it when there is none.
    std::string_view word(std::string_view name);

    /// The next word as a decimal number from `lowest` to `highest`.
    int number(std::string_view name, int lowest, int highest);

    /// The next word as two decimal numbers from 0 to `highest`, with a comma between them.
    std::pair<int, int> twoNumbers(std::string_view name, int highest);

    /// The next word as a byte, one or two hexadecimal digits.
    std::uint8_t hexadecimalByte(std::string_view name);

    /// All that is left, which must not be nothing.
    std::string_view rest(std::string_view name);

    /// A file named relative to what the line came from.
    std::filesystem::path file(std::string_view name) const;

    /// Refuses a line that goes on.
    void end() const;

    [[noreturn]] void refuse(const std::string& reason) const;

private:
    std::string_view text;
    const std::string& where;
    const std::filesystem::path folder;
};

/// A word of the user's for a message: in single quotes, control characters as `?`, cut after 40 bytes.
std::string quoted(std::string_view word);
}  // namespace Host
