#include "host/render/TempoMap.h"

#include <algorithm>
#include <cmath>

namespace Host
{
namespace
{
constexpr int FIRST_TEMPO = 120;
}

TempoMap::TempoMap(const std::vector<TempoChange>& changes, int framesPerSecond)
{
    const auto framesPerPulse = [&](int bpm) { return framesPerSecond * 60.0 / (480.0 * bpm); };
    stretches.push_back({.ppq = 0, .frame = 0, .framesPerPulse = framesPerPulse(FIRST_TEMPO)});
    for (const auto& [ppq, bpm] : changes) {
        const Stretch& last = stretches.back();
        stretches.push_back({.ppq = ppq,
                             .frame = last.frame + (ppq - last.ppq) * last.framesPerPulse,
                             .framesPerPulse = framesPerPulse(bpm)});
    }
}

std::int64_t TempoMap::frameAt(std::int32_t ppq) const
{
    const auto next = std::ranges::upper_bound(stretches, ppq, {}, &Stretch::ppq);
    const Stretch& stretch = *std::prev(next);
    return static_cast<std::int64_t>(std::floor(stretch.frame + (ppq - stretch.ppq) * stretch.framesPerPulse));
}
}  // namespace Host
