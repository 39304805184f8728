#pragma once

#include <chrono>
#include <cstdint>
#include <string>

#include "host/clock/SliceLoad.h"
#include "host/ports/Ports.h"

namespace Host
{
/// How live playing stands. Loads are of the slices since the last look.
struct Status {
    std::string system;
    int tempo = 0;  ///< beats per minute
    SliceLoad::Summary load;
    std::uint64_t lateSlices = 0;  ///< since the start
    std::string realTime;          ///< who has real-time priority
};

/// The line that tells it: what is connected, tempo, load (median, 99th percentile, worst), slices that were late,
/// notes that sound, and what was lost or left out at which port.
std::string describeStatus(const Status& status, const Ports& ports);

/// "1/4/22 us": median, 99th percentile and worst of a load, rounded up to whole microseconds.
std::string describeLoad(const SliceLoad::Summary& load);

/// A line on standard output once a second: on a terminal always the same line, otherwise one below the other.
class StatusLine
{
public:
    StatusLine();

    /// Leaves the line as it is and goes on below it.
    ~StatusLine();

    StatusLine(const StatusLine&) = delete;
    StatusLine& operator=(const StatusLine&) = delete;

    /// True once a second.
    bool isDue();

    void show(const std::string& line);

    /// What any other line begins with, so that on a terminal nothing of the status line is left in it. Any thread.
    static const char* eraser();

private:
    const bool onTerminal;
    std::chrono::steady_clock::time_point next;
};
}  // namespace Host
