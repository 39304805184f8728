#pragma once

#include <chrono>
#include <string>

namespace Host
{
/// A line on standard output that is renewed once a second: a terminal shows it always in the same place, any other
/// output gets one line after the other.
class StatusLine
{
public:
    StatusLine();

    /// Leaves the last line on the terminal; what is printed later begins below it.
    ~StatusLine();

    StatusLine(const StatusLine&) = delete;
    StatusLine& operator=(const StatusLine&) = delete;

    /// True once a second.
    bool isDue();

    void show(const std::string& line);

    /// What any other output to the terminal must begin with, so that nothing of the status line is left in it; empty
    /// while none is shown. Any thread.
    static const char* eraser();

private:
    std::chrono::steady_clock::time_point next;
};
}  // namespace Host
