#pragma once

#include <array>
#include <atomic>
#include <bitset>
#include <cstdint>

#include "host/midi/PendingNoteOffs.h"

namespace Host
{
/// Keeps a flood, as an output makes it that is wired to an input, from drowning the engine: what goes beyond the rate
/// does not pass and is counted. What ends something that passed always passes: the note off of a note, the release of
/// a pedal. One thread at a time.
class EventLimit
{
public:
    /// In the long run; eight times what a MIDI cable can carry.
    static constexpr std::uint32_t PER_SECOND = 8000;
    /// At once, after a pause.
    static constexpr std::int32_t BURST = 2000;

    /// `milliseconds` as of `monotonicMilliseconds`.
    bool passes(const ShortMessage& message, std::uint32_t milliseconds);

    /// What did not pass so far. Any thread.
    std::uint64_t limitedCount() const { return limited.load(std::memory_order_relaxed); }

private:
    bool isStruckAgain(const ShortMessage& message) const;
    void refill(std::uint32_t milliseconds);
    bool ends(const ShortMessage& message) const;
    void enter(const ShortMessage& message);

    std::uint32_t lastRefill = 0;
    std::int32_t room = BURST;                              // for what passes
    std::int32_t calm = BURST;                              // the same for all that arrives
    std::array<std::uint16_t, CHANNELS * NOTES> strikes{};  // that passed and were not answered
    std::bitset<CHANNELS * 128> controllers;                // that passed with a value above 0, and not with 0 since
    std::atomic<std::uint64_t> limited{0};
};
}  // namespace Host
