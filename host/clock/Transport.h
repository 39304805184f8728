#pragma once

namespace Host
{
/// How a transport that others control stands.
struct Transport {
    bool rolling = false;
    double seconds = 0;  ///< from the song's beginning
    double bpm = 0;      ///< 0 if nobody gives a tempo, or one outside 20 to 250
    double beats = 0;    ///< where somebody does: quarter notes from the song's beginning
};
}  // namespace Host
