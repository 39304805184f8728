#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <utility>

namespace Host
{
/// Parses one line of a performance word by word. A carriage return at its end and a comment are removed: `#` starts a
/// comment at the start of the line or after a blank (space or tab), but not between double quotes. Errors are thrown
/// as InputError beginning with `where`. The text must outlive this object.
class PerformanceLine
{
public:
    /// File names are relative to `folder`. Throws InputError if the line is not UTF-8 or holds a NUL byte.
    PerformanceLine(std::string_view text, const std::string& where, std::filesystem::path folder = {});

    /// Whether only blanks are left.
    bool empty() const { return text.empty(); }

    /// The next word; `name` names it in the error if there is none.
    std::string_view word(std::string_view name);

    /// The next word as a decimal number from `lowest` to `highest`.
    int number(std::string_view name, int lowest, int highest);

    /// The next word as two decimal numbers from 0 to `highest`, with a comma between them.
    std::pair<int, int> twoNumbers(std::string_view name, int highest);

    /// The next word as a byte, one or two hexadecimal digits.
    std::uint8_t hexadecimalByte(std::string_view name);

    /// The rest of the line, which must not be empty.
    std::string_view rest(std::string_view name);

    /// The path of a file name of the line.
    std::filesystem::path file(std::string_view name) const;

    /// Throws if the line has another word.
    void end() const;

    [[noreturn]] void refuse(const std::string& reason) const;

private:
    std::string_view text;
    const std::string& where;
    const std::filesystem::path folder;
};

/// A word of the input for an error message: in single quotes, control characters as `?`, cut after 40 bytes.
std::string quoted(std::string_view word);
}  // namespace Host
