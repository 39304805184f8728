#pragma once

#include <cstdint>
#include <string>

namespace Gui
{
/// What a host reports to the window, several times a second, for the status line. Texts are UTF-8, in one line.
struct HostStatus {
    /// The MIDI and sound system in a few words: "JACK 48000 Hz, 256 frames, load 3 %, 0 xruns".
    std::string system{};
    /// Why there is no sound, as a clause: "no JACK server is running"; empty if nothing is wrong.
    std::string trouble{};
    /// The inputs by which events came since the last report, by bits; those above 63 are left out.
    std::uint64_t activeInputs = 0;
    /// The pulse that is played now, 480 to a beat; below 0 while the clock does not run or the host does not report
    /// it.
    std::int32_t pulse = -1;
};
}  // namespace Gui
