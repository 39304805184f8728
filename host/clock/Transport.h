#pragma once

namespace Host
{
/// The state of an external transport.
struct Transport {
    bool rolling = false;
    double seconds = 0;  ///< position, from the beginning of the song
    double bpm = 0;      ///< 0 if there is no tempo, or one outside 20 to 250
    double beats = 0;    ///< position in quarter notes, if there is a tempo
};
}  // namespace Host
