#pragma once

#include <array>
#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdint>

namespace Host
{
/// A histogram of the durations of time slices, and a count of late ones. `add` is a few plain stores; any thread may
/// read meanwhile. Durations are kept with a resolution of an eighth.
class SliceLoad
{
public:
    /// Adds a slice of that duration. The thread that plays the slices.
    void add(std::chrono::nanoseconds time);

    /// That many slices began more than a period, or a millisecond, too late. The thread that plays the slices.
    void addLate(std::uint64_t slices) { late.store(lateCount() + slices, std::memory_order_relaxed); }

    std::uint64_t lateCount() const { return late.load(std::memory_order_relaxed); }

    static constexpr std::size_t STEPS_PER_OCTAVE = 8;
    static constexpr std::size_t OCTAVES = 32;  // up to four seconds
    using Counts = std::array<std::uint64_t, OCTAVES * STEPS_PER_OCTAVE>;

    /// The number of slices for each step of duration. Any thread.
    Counts counts() const;

    /// Statistics of the slices that were added between `before` and `after`; all 0 if there are none.
    struct Summary {
        std::uint64_t slices = 0;
        std::chrono::nanoseconds median{};
        std::chrono::nanoseconds most{};  ///< 99th percentile
        std::chrono::nanoseconds worst{};
    };
    static Summary summarise(const Counts& before, const Counts& after);

private:
    std::array<std::atomic<std::uint64_t>, OCTAVES * STEPS_PER_OCTAVE> table{};
    std::atomic<std::uint64_t> late{0};
};
}  // namespace Host
