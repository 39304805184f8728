#pragma once

#include <chrono>
#include <cstdint>
#include <string>

#include "host/clock/SliceLoad.h"
#include "host/ports/Ports.h"

namespace Host
{
/// The state of live playing.
struct Status {
    std::string system;                       ///< the MIDI system, with the server's xruns
    int tempo = 0;                            ///< beats per minute
    SliceLoad::Summary load;                  ///< of the slices since the last status
    std::uint64_t lateSlices = 0;             ///< since the start
    std::string realTime;                     ///< which threads have real-time priority
    std::chrono::nanoseconds longestHold{0};  ///< of the lock of the slices, since the last status
};

/// How many notes sound at all outputs, as delivered. Any thread.
int soundingNotes(const Ports& ports);

/// One line: system, open ports, tempo, duration of a slice (median, 99th percentile, longest), late slices, the
/// longest time that a command held the lock of the slices, sounding notes, real-time priorities, and how many events
/// each port lost or left out.
std::string describeStatus(const Status& status, const Ports& ports);

/// "1/4/22 us": median, 99th percentile and longest duration of a slice, rounded up to whole microseconds.
std::string describeLoad(const SliceLoad::Summary& load);
}  // namespace Host
