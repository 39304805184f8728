#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

#include "backend/values/OrvMidiMessage.h"

namespace Backend::MidiEngine
{
/// Remembers the open presses of each key, so that a note-off ends what its note-on started, even after changes in
/// between. A press has an outcome: a value (the note that its zone made of it, or its output) and the class of its
/// velocity. Presses of a key with equal outcomes are counted as one run; the latest run is the one pressed last.
///
/// The memory has a fixed size of `capacity` runs. When it is full, a run without open presses is replaced; if there is
/// none, `press` refuses, and the note-on must not be played, so that no note-off is ever lost. Pressing and releasing
/// takes constant time as long as a key has one outcome. Time slice only. See docs/decisions/0006.
class PressMemory
{
public:
    static constexpr std::size_t CAPACITY = 16384;

    /// The memory has keys of two kinds: for notes in zones and velocity ranges, and for notes to the default output.
    using Key = std::uint64_t;
    static constexpr Key OUTPUT_KEY = Key{1} << 63;

    struct Outcome {
        std::uint8_t value = 0;
        std::uint8_t velocityClass = 0;
        bool operator==(const Outcome&) const = default;
    };

    explicit PressMemory(std::size_t capacity = CAPACITY);

    static constexpr std::uint32_t byte(int value) { return static_cast<std::uint8_t>(value); }

    /// The key for a note on its route.
    static constexpr Key keyOf(const OrvMidiMessage& note)
    {
        return note.getRoute() | Key{byte(note.getChannel())} << 32 | Key{note.getD1()} << 40;
    }

    /// Adds a press. False if the memory is full.
    bool press(Key key, Outcome outcome, std::uint8_t velocity, std::uint32_t count = 1);

    /// Takes one press from the key's latest run and calls `noteOff(value, velocity)`, even if that run has no open
    /// press; then calls it for each press of all other runs, oldest run first, and forgets these. `velocity` is that
    /// of the run's latest press. False, without a call, if there is no run of the key.
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

    /// Forgets the runs of `OUTPUT_KEY` keys to outputs that are gone.
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

    // Each slot has a chain of runs; those of one key are sorted, the latest first.
    struct Run {
        Key key;
        std::uint32_t count;  // 0 only if the key has no other run
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
    /// Removes the key's other runs from the chain and returns the first, the oldest.
    Index detachOlder(Index latest);
    /// A free run, or `NONE`.
    Index take();
    void recycle(Index run);

    std::vector<Run> runs;
    std::vector<Index> heads;
    std::size_t used = 0;  // the number of runs, from the first, that were ever in use
    Index free = NONE;     // the first of the chain of free runs
    std::size_t usedUp = 0;
    std::size_t hand = 0;  // the position at which the search for a run without presses continues
};
}  // namespace Backend::MidiEngine
