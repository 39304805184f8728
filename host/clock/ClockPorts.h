#pragma once

namespace Host
{
/// Whose MIDI clock the host follows and who gets its own, by port number; -1 for nobody.
struct ClockLinks {
    int in = -1;   ///< the input that leads wherever the program names none
    int out = -1;  ///< an output
};
}  // namespace Host
