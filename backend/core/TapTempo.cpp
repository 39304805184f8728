#include "backend/core/TapTempo.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "backend/model/Program.h"

namespace Backend
{
namespace
{
constexpr std::uint32_t MINUTE = 60'000;
constexpr std::uint32_t LONGEST = MINUTE / Program::LOWEST_TEMPO;
constexpr std::uint32_t SHORTEST = MINUTE / Program::HIGHEST_TEMPO;
}  // namespace

std::optional<int> TapTempo::tap(std::uint32_t milliseconds)
{
    const auto before = std::exchange(last, milliseconds);
    const std::uint32_t interval = before ? milliseconds - *before : 0;  // the clock may have wrapped
    if (interval < SHORTEST || interval > LONGEST) {
        count = 0;
        return std::nullopt;
    }
    std::shift_right(std::begin(intervals), std::end(intervals), 1);
    intervals[0] = interval;
    count = std::min(count + 1, MOST_INTERVALS);
    const auto sum = std::accumulate(intervals, intervals + count, 0u);
    return static_cast<int>((MINUTE * static_cast<std::uint32_t>(count) + sum / 2) / sum);
}
}  // namespace Backend
