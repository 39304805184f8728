#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Backend::Version2
{
/// The lines of a file, one after another. Lines end with CR, LF or both. A byte order mark is skipped; a text that is
/// not UTF-8 is read as Windows-1252; control characters count as blanks.
class Lines
{
public:
    Lines(std::string_view fileName, std::string_view text);

    bool atEnd() const { return at == lines.size(); }
    /// Without the blanks on both sides; empty for a blank line and at the end.
    std::string_view current() const { return atEnd() ? std::string_view() : lines[at]; }
    /// The first character of the current line, 0 if it is blank.
    char letter() const { return current().empty() ? '\0' : current().front(); }
    void next() { at += atEnd() ? 0 : 1; }
    void passBlankLines();
    /// Skips a block: goes to the blank line after it, and reports each line in the debug stream.
    void passBlock(std::string_view reason);

    /// Writes to the debug stream why the current line is left out.
    void report(std::string_view reason) const;

private:
    std::string name;
    std::vector<std::string> lines;
    std::size_t at = 0;
};
}  // namespace Backend::Version2
