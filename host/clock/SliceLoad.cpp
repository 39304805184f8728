#include "host/clock/SliceLoad.h"

#include <algorithm>
#include <bit>
#include <numeric>

namespace Host
{
namespace
{
constexpr unsigned STEP_BITS = 3;
static_assert(SliceLoad::STEPS_PER_OCTAVE == 1u << STEP_BITS);

/// Below 8, one step for each number; above, 8 steps from each power of two to the next.
std::size_t stepOf(std::uint64_t nanoseconds)
{
    const auto width = static_cast<unsigned>(std::bit_width(nanoseconds));
    if (width <= STEP_BITS) return static_cast<std::size_t>(nanoseconds);
    const unsigned octave = width - STEP_BITS;
    const std::uint64_t step = (nanoseconds >> (octave - 1)) & (SliceLoad::STEPS_PER_OCTAVE - 1);
    return octave * SliceLoad::STEPS_PER_OCTAVE + static_cast<std::size_t>(step);
}

/// The first number after a step.
std::chrono::nanoseconds endOf(std::size_t step)
{
    const std::size_t octave = step / SliceLoad::STEPS_PER_OCTAVE;
    const std::uint64_t within = step % SliceLoad::STEPS_PER_OCTAVE + 1;
    const std::uint64_t end = octave == 0 ? within : (SliceLoad::STEPS_PER_OCTAVE + within) << (octave - 1);
    return std::chrono::nanoseconds(end);
}
}  // namespace

void SliceLoad::add(std::chrono::nanoseconds time)
{
    const auto nanoseconds = static_cast<std::uint64_t>(std::max<std::int64_t>(time.count(), 0));
    auto& count = table[std::min(stepOf(nanoseconds), table.size() - 1)];
    count.store(count.load(std::memory_order_relaxed) + 1, std::memory_order_relaxed);
}

SliceLoad::Counts SliceLoad::counts() const
{
    Counts counts;
    std::ranges::transform(table, counts.begin(),
                           [](const auto& count) { return count.load(std::memory_order_relaxed); });
    return counts;
}

SliceLoad::Summary SliceLoad::summarise(const Counts& before, const Counts& after)
{
    Counts added;
    std::ranges::transform(after, before, added.begin(), std::minus());
    Summary summary;
    summary.slices = std::accumulate(added.begin(), added.end(), std::uint64_t{0});
    std::uint64_t seen = 0;
    for (std::size_t step = 0; step < added.size(); ++step) {
        if (added[step] == 0) continue;
        seen += added[step];
        summary.worst = endOf(step);
        if (summary.median.count() == 0 && 2 * seen >= summary.slices) summary.median = summary.worst;
        if (summary.most.count() == 0 && 100 * seen >= 99 * summary.slices) summary.most = summary.worst;
    }
    return summary;
}
}  // namespace Host
