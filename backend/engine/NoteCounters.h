#pragma once

#include <array>
#include <cstdint>

namespace Backend::MidiEngine
{
/// How many notes sound per output, channel and note, and whether the last thing the player got there was a note on.
/// One flat table, so that counting is one add. Time slice only.
class NoteCounters
{
public:
    static constexpr int OUTPUTS = 128;
    static constexpr int CHANNELS = 16;
    static constexpr int NOTES = 128;

    class Counter
    {
    public:
        void press() { word += ONE; }

        /// True if this note off ends the note: its count reaches zero, or nothing was counted.
        bool release()
        {
            if (word >= ONE) word -= ONE;
            return word < ONE;
        }

        void setPlayerHolds(bool holds) { word = (word & ~HOLDS) | (holds ? HOLDS : 0); }
        bool doesPlayerHold() const { return (word & HOLDS) != 0; }

    private:
        friend class NoteCounters;
        static constexpr std::uint32_t HOLDS = 1;  // the lowest bit
        static constexpr std::uint32_t ONE = 2;    // the count is in the bits above it

        std::uint32_t word = 0;
    };

    /// The counter of a note, or null if one of the three lies outside the table.
    Counter* find(int output, int channel, int note)
    {
        const auto o = static_cast<unsigned>(output);
        const auto c = static_cast<unsigned>(channel);
        const auto n = static_cast<unsigned>(note);
        if (o >= OUTPUTS || c >= CHANNELS || n >= NOTES) return nullptr;
        return &counters[(o * CHANNELS + c) * NOTES + n];
    }

    /// To be called before the first note on an output.
    void use(int output) { used[static_cast<unsigned>(output)] = true; }

    /// Forgets an output whose port went.
    void clearOutput(int output);

    /// Sets every count above zero to zero and calls `release(output, channel, note)` for it, upward.
    template <class Release>
    void clear(Release&& release)
    {
        for (int output = 0; output < OUTPUTS; ++output) {
            if (!used[static_cast<unsigned>(output)]) continue;
            for (int channel = 0; channel < CHANNELS; ++channel)
                for (int note = 0; note < NOTES; ++note) {
                    Counter* counter = find(output, channel, note);
                    if (counter->word < Counter::ONE) continue;
                    counter->word &= Counter::HOLDS;
                    release(output, channel, note);
                }
        }
    }

private:
    std::array<Counter, OUTPUTS * CHANNELS * NOTES> counters{};
    std::array<bool, OUTPUTS> used{};  // so that a reset walks only outputs that ever played
};
}  // namespace Backend::MidiEngine
