#pragma once

#include <string>
#include <string_view>

namespace Backend::Version2
{
/// The words of a line from left to right. A word that is missing at the end leaves what it stands for at its default;
/// a word that does not fit its place makes the line one that is not understood.
class Words
{
public:
    explicit Words(std::string_view line) : rest(line) {}

    /// The next word, empty after the last.
    std::string_view word();
    /// The same with a blank for each "_".
    std::string text();
    /// A whole number within the limits.
    int number(int lowest, int highest, int missing);
    /// The same for what counts from 1, with 0 for none: gives what counts from 0, and -1.
    int ordinal(int highest) { return number(0, highest + 1, 0) - 1; }
    bool flag(bool missing) { return number(0, 1, missing ? 1 : 0) == 1; }

    /// Makes the line one that is not understood.
    void refuse() { isGood = false; }
    /// Every word was in its place, and none is left.
    bool areUnderstood() const { return isGood && rest.find_first_not_of(' ') == std::string_view::npos; }

private:
    std::string_view rest;
    bool isGood = true;
};
}  // namespace Backend::Version2
