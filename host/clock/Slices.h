#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <utility>

#include "api/OrvIF.h"
#include "host/clock/SliceLoad.h"

namespace Host
{
/// Plays contiguous time slices: each begins at the pulse where the last one ended. Before the 32-bit pulse counter
/// overflows, all notes are ended and the counter restarts. One thread at a time.
class Slices
{
public:
    static constexpr std::int32_t FIRST_PULSE = Backend::OrvIF::FIRST_PULSE;
    static constexpr std::int32_t LAST_PULSE = 2'147'000'000;  // events may be scheduled some minutes ahead
    static constexpr int LONGEST = Backend::OrvIF::MAX_TIME_SLICE - 1;

    using Play = std::function<void(std::int32_t startPpq, std::int32_t endPpq)>;

    /// `resetNotes` ends every note; it is called between two slices on the thread that plays them.
    Slices(Play playSlice, std::function<void()> resetNotes)
        : playTimeSlice(std::move(playSlice)), reset(std::move(resetNotes))
    {
    }

    /// Measures the duration of each slice; null for no measurement. Before the first slice.
    void measureInto(SliceLoad* sliceLoad) { load = sliceLoad; }

    /// For tests: the first pulse.
    void startAt(std::int32_t pulse) { next = pulse; }

    /// That many slices began too late.
    void noteLate(std::uint64_t slices)
    {
        if (load != nullptr) load->addLate(slices);
    }

    /// Plays the next `pulses` pulses, 0 to `LONGEST`.
    void play(int pulses);

    /// The pulse after the last slice. Any thread.
    std::int32_t getPulse() const { return present.load(std::memory_order_relaxed); }

    /// How many slices have been played. Any thread.
    std::uint64_t count() const { return played.load(std::memory_order_acquire); }

private:
    void restartCounter();
    void playTo(std::int32_t endPpq);

    const Play playTimeSlice;
    const std::function<void()> reset;
    SliceLoad* load = nullptr;
    std::int32_t next = FIRST_PULSE;
    std::atomic<std::uint64_t> played{0};
    std::atomic<std::int32_t> present{-1};
};
}  // namespace Host
