#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

#include "backend/values/OrvMidiMessage.h"

namespace Backend::MidiEngine
{
/// The open presses of each key, so that a note off follows its note on whatever was changed in between. What a press
/// became is its outcome: a value (the note that its zone made of it, or the output that it got) and the class of its
/// velocity. Equal outcomes of a key are counted as one run; the run that was pressed last is the latest.
///
/// Memory is fixed: `capacity` runs. When it is full, a run without open presses makes room. If there is none either,
/// `press` refuses the press, and its note on must not be played; so no note off is ever lost. Pressing and releasing
/// takes constant time as long as a key has one outcome. Time slice only. See docs/decisions/0006.
class PressMemory
{
public:
    static constexpr std::size_t CAPACITY = 16384;

    /// Two kinds of keys share the memory: of notes in zones and velocity ranges, and of notes for the default output.
    using Key = std::uint64_t;
    static constexpr Key OUTPUT_KEY = Key{1} << 63;

    struct Outcome {
        std::uint8_t value = 0;
        std::uint8_t velocityClass = 0;
        bool operator==(const Outcome&) const = default;
    };

    explicit PressMemory(std::size_t capacity = CAPACITY);

    static constexpr std::uint32_t byte(int value) { return static_cast<std::uint8_t>(value); }

    /// The key of a note on its route.
    static constexpr Key keyOf(const OrvMidiMessage& note)
    {
        return note.getRoute() | Key{byte(note.getChannel())} << 32 | Key{note.getD1()} << 40;
    }

    /// One press more. False if it cannot be remembered.
    bool press(Key key, Outcome outcome, std::uint8_t velocity, std::uint32_t count = 1);

    /// Takes one press from the key's latest run and calls `noteOff(value, velocity)` for it, also when that run has no
    /// open press left; then once for each press of every other run, oldest run first. Those runs are forgotten.
    /// `velocity` is that of the run's latest press. False, and nothing called, if nothing is known of the key.
    template <class NoteOff>
    bool release(Key key, NoteOff&& noteOff)
    {
        const Index latest = find(heads[slotOf(key)], key);
        if (latest == NONE) return false;
        const Run run = runs[latest];
        takeOne(latest);
        Index older = run.next == NONE ? NONE : detachOlder(latest);
        noteOff(run.outcome.value, run.velocity);
        while (older != NONE) {
            const Run ended = runs[older];
            for (std::uint32_t press = 0; press < ended.count; ++press) noteOff(ended.outcome.value, ended.velocity);
            recycle(older);
            older = ended.next;
        }
        return true;
    }

    /// Forgets the runs of `OUTPUT_KEY` keys whose output is gone.
    template <class IsGone>
    void forgetOutputs(IsGone&& isGone)
    {
        if (used == 0) return;
        for (Index& head : heads)
            for (Index* link = &head; *link != NONE;) {
                const Index at = *link;
                if ((runs[at].key & OUTPUT_KEY) == 0 || !isGone(runs[at].outcome.value)) {
                    link = &runs[at].next;
                    continue;
                }
                *link = runs[at].next;
                if (runs[at].count == 0) --usedUp;
                recycle(at);
            }
    }

    void clear();

private:
    using Index = std::uint16_t;
    static constexpr Index NONE = std::numeric_limits<Index>::max();
    static constexpr std::size_t SLOTS = 8192;

    // The runs of a slot are chained; those of one key stand in their order, the latest first.
    struct Run {
        Key key;
        std::uint32_t count;  // 0 only where the key has no other run
        Index next;
        Outcome outcome;
        std::uint8_t velocity;
    };

    static std::size_t slotOf(Key key) { return key * 0x9E3779B97F4A7C15u >> 51; }
    Index find(Index from, Key key) const
    {
        while (from != NONE && runs[from].key != key) from = runs[from].next;
        return from;
    }
    void takeOne(Index run)
    {
        if (runs[run].count == 0) return;
        if (--runs[run].count == 0) ++usedUp;
    }

    bool startRun(Key key, Outcome outcome, std::uint8_t velocity, std::uint32_t count);
    void unlink(Index run);
    void putFirst(Index run);
    /// The key's other runs, taken out of the chain, oldest first.
    Index detachOlder(Index latest);
    /// A free run, or `NONE`.
    Index take();
    void recycle(Index run);

    std::vector<Run> runs;
    std::vector<Index> heads;
    std::size_t used = 0;  // runs from the beginning that were ever in use
    Index free = NONE;     // chain of those that are free again
    std::size_t usedUp = 0;
    std::size_t hand = 0;  // where the search for a used-up run goes on
};
}  // namespace Backend::MidiEngine
