#pragma once

#include <array>
#include <atomic>
#include <bitset>
#include <cstdint>

#include "host/midi/PendingNoteOffs.h"

namespace Host
{
/// Limits the rate of an input's messages, so that a feedback loop (an output connected to an input) cannot overload
/// the engine. Messages above the rate are dropped and counted, except those that end something that passed before: the
/// note-off of a note, a controller with value 0. One thread at a time.
class EventLimit
{
public:
    /// Messages per second, averaged; eight times the capacity of a MIDI cable.
    static constexpr std::uint32_t PER_SECOND = 8000;
    /// Messages at once after a pause.
    static constexpr std::int32_t BURST = 2000;

    /// False if the message is to be dropped. `milliseconds` as of `monotonicMilliseconds`.
    bool passes(const ShortMessage& message, std::uint32_t milliseconds);

    /// How many messages were dropped so far. Any thread.
    std::uint64_t limitedCount() const { return limited.load(std::memory_order_relaxed); }

private:
    bool isRepeatedNoteOn(const ShortMessage& message) const;
    void refill(std::uint32_t milliseconds);
    bool ends(const ShortMessage& message) const;
    void record(const ShortMessage& message);

    std::uint32_t lastRefill = 0;
    std::int32_t tokens = BURST;                            // messages that may pass now
    std::int32_t allTokens = BURST;                         // the same, reduced by dropped messages too
    std::array<std::uint16_t, CHANNELS * NOTES> noteOns{};  // that passed, less the note-offs that passed
    std::bitset<CHANNELS * 128> controllers;                // whose last value that passed was above 0
    std::atomic<std::uint64_t> limited{0};
};
}  // namespace Host
