#pragma once

#include <cstdint>
#include <vector>

#include "host/render/RenderPlayer.h"

namespace Host
{
/// Converts pulses to frames of sound by the tempo changes of a performance: 120 beats per minute at the start, 480
/// pulses for each beat.
class TempoMap
{
public:
    /// `changes` are sorted by pulse.
    TempoMap(const std::vector<TempoChange>& changes, int framesPerSecond);

    /// The frame at which a pulse begins, rounded down.
    std::int64_t frameAt(std::int32_t ppq) const;

private:
    struct Stretch {
        std::int32_t ppq;
        double frame;
        double framesPerPulse;
    };
    std::vector<Stretch> stretches;
};
}  // namespace Host
