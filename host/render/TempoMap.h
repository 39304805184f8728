#pragma once

#include <cstdint>
#include <vector>

#include "host/render/RenderPlayer.h"

namespace Host
{
/// Turns pulses into frames of sound under the tempo as it was set: 120 beats per minute at the start, 480 pulses a
/// beat.
class TempoMap
{
public:
    /// `changes` by rising pulse.
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
