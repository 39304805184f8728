#pragma once

#include <array>
#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdint>

namespace Host
{
/// How long time slices take and how many were late, in a table of a fixed size: an entry is a few plain stores on the
/// thread that plays the slices, and any other may read meanwhile. Times are kept to an eighth.
class SliceLoad
{
public:
    /// A slice took that long. The clock's thread.
    void add(std::chrono::nanoseconds time);

    /// That many slices began more than a period, or a millisecond, behind their time. The clock's thread.
    void addLate(std::uint64_t slices) { late.store(lateCount() + slices, std::memory_order_relaxed); }

    std::uint64_t lateCount() const { return late.load(std::memory_order_relaxed); }

    static constexpr std::size_t STEPS_PER_OCTAVE = 8;
    static constexpr std::size_t OCTAVES = 32;  // up to four seconds
    using Counts = std::array<std::uint64_t, OCTAVES * STEPS_PER_OCTAVE>;

    /// The slices so far by the time they took. Any thread.
    Counts counts() const;

    /// Of the slices in `after` that are not in `before`; all 0 if there are none.
    struct Summary {
        std::uint64_t slices = 0;
        std::chrono::nanoseconds median{};
        std::chrono::nanoseconds most{};  ///< 99 of 100 take no longer
        std::chrono::nanoseconds worst{};
    };
    static Summary summarise(const Counts& before, const Counts& after);

private:
    std::array<std::atomic<std::uint64_t>, OCTAVES * STEPS_PER_OCTAVE> table{};
    std::atomic<std::uint64_t> late{0};
};
}  // namespace Host
