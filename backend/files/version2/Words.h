#pragma once

#include <string>
#include <string_view>

namespace Backend::Version2
{
/// The words of a line from left to right. If a word is missing at the end, its value is the default; if a word is not
/// valid, the whole line is refused.
class Words
{
public:
    explicit Words(std::string_view line) : rest(line) {}

    /// The next word, empty at the end.
    std::string_view word();
    /// The next word, with blanks in place of "_".
    std::string text();
    /// The next word as a whole number within the limits.
    int number(int lowest, int highest, int missing);
    /// The next word as a number that counts from 1, with 0 for none: returned from 0, and -1 for none.
    int ordinal(int highest) { return number(0, highest + 1, 0) - 1; }
    bool flag(bool missing) { return number(0, 1, missing ? 1 : 0) == 1; }

    /// Marks the line as not valid.
    void refuse() { isGood = false; }
    /// Whether every word was valid, and none is left.
    bool areUnderstood() const { return isGood && rest.find_first_not_of(' ') == std::string_view::npos; }

private:
    std::string_view rest;
    bool isGood = true;
};
}  // namespace Backend::Version2
