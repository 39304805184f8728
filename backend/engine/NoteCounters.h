#pragma once

#include <array>
#include <cstdint>

namespace Backend::MidiEngine
{
/// Counts, for each output, channel and note, how many notes sound, and whether the last event played there was a
/// note-on. One flat table, so that counting takes one addition. Time slice only.
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

        /// Counts a note-off. True if it ends the note: the count reaches zero, or was zero.
        bool release()
        {
            if (word >= ONE) word -= ONE;
            return word < ONE;
        }

        void setLastNoteOn(bool isNoteOn) { word = (word & ~LAST_NOTE_ON) | (isNoteOn ? LAST_NOTE_ON : 0); }
        bool wasLastNoteOn() const { return (word & LAST_NOTE_ON) != 0; }

    private:
        friend class NoteCounters;
        static constexpr std::uint32_t LAST_NOTE_ON = 1;  // the lowest bit: the last event was a note-on
        static constexpr std::uint32_t ONE = 2;           // the count is in the bits above

        std::uint32_t word = 0;
    };

    /// The counter of a note; null if output, channel or note is outside the table.
    Counter* find(int output, int channel, int note)
    {
        const auto o = static_cast<unsigned>(output);
        const auto c = static_cast<unsigned>(channel);
        const auto n = static_cast<unsigned>(note);
        if (o >= OUTPUTS || c >= CHANNELS || n >= NOTES) return nullptr;
        return &counters[(o * CHANNELS + c) * NOTES + n];
    }

    /// To be called before the first note of an output.
    void use(int output) { used[static_cast<unsigned>(output)] = true; }

    /// Clears the counters of an output that is gone.
    void clearOutput(int output);

    /// Calls `release(output, channel, note)` for every count above zero, in ascending order, and clears it.
    template <class Release>
    void clear(Release&& release)
    {
        for (int output = 0; output < OUTPUTS; ++output) {
            if (!used[static_cast<unsigned>(output)]) continue;
            for (int channel = 0; channel < CHANNELS; ++channel)
                for (int note = 0; note < NOTES; ++note) {
                    Counter* counter = find(output, channel, note);
                    if (counter->word < Counter::ONE) continue;
                    counter->word &= Counter::LAST_NOTE_ON;
                    release(output, channel, note);
                }
        }
    }

private:
    std::array<Counter, OUTPUTS * CHANNELS * NOTES> counters{};
    std::array<bool, OUTPUTS> used{};  // the outputs that have played; a reset skips the others
};
}  // namespace Backend::MidiEngine
