#pragma once

namespace Host
{
/// The ports of the MIDI clocks, by number; -1 for none.
struct ClockPorts {
    int in = -1;   ///< the input whose clock sets the tempo of programs that name no input
    int out = -1;  ///< the output that the host sends its own clock to
};
}  // namespace Host
