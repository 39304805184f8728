#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <utility>
#include <vector>

#include "backend/engine/RunSet.h"
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
    static constexpr std::size_t CAPACITY = RunSet::CAPACITY;

    /// The memory has keys of two kinds: for notes in zones and velocity ranges, and for notes to the default output.
    using Key = std::uint64_t;
    static constexpr Key OUTPUT_KEY = Key{1} << 63;

    struct Outcome {
        std::uint8_t value = 0;
        std::uint8_t velocityClass = 0;
        bool operator==(const Outcome&) const = default;
    };

    using Index = RunSet::Index;
    static constexpr Index NONE = std::numeric_limits<Index>::max();

    /// Presses of a key with equal outcomes.
    struct Run {
        Key key = 0;
        std::uint32_t count = 0;       ///< of open presses; 0 only if the key has no other run
        std::uint32_t generation = 0;  ///< of the layers that the latest press met, see `MidiEngine`
        Index next = NONE;
        Outcome outcome;
        std::uint8_t velocity = 0;  ///< of the latest press
    };

    /// One press, or `count` presses that are alike.
    struct Press {
        Outcome outcome;
        std::uint8_t velocity = 0;
        std::uint32_t generation = 0;
        std::uint32_t count = 1;
    };

    /// The run to which a press was added, `NONE` if the memory is full; new if it has a new outcome or key.
    struct Added {
        Index run = NONE;
        bool isNew = false;
    };

    /// At most `CAPACITY`.
    explicit PressMemory(std::size_t capacity = CAPACITY);

    static constexpr std::uint32_t byte(int value) { return static_cast<std::uint8_t>(value); }

    /// The key for a note on its route.
    static constexpr Key keyOf(const OrvMidiMessage& note)
    {
        return note.getRoute() | Key{byte(note.getChannel())} << 32 | Key{note.getD1()} << 40;
    }

    /// A note-off for the presses of such a key: on their route, of the run's note and velocity.
    static OrvMidiMessage noteOffOf(const Run& run);

    /// Adds a press to the first run, from the latest on, for which `isSame(run, index)` is true, or to a new one.
    template <class IsSame>
    Added press(Key key, const Press& press, IsSame&& isSame)
    {
        const Index latest = find(heads[slotOf(key)], key);
        if (latest == NONE) return {.run = startRun(key, press), .isNew = true};
        Index run = latest;
        while (run != NONE && !isSame(std::as_const(runs[run]), run)) run = find(runs[run].next, key);
        const bool isNew = run == NONE;
        if (runs[latest].count == 0) {  // the key has no other run
            run = latest;
            --usedUp;
            runs[run].outcome = press.outcome;
            markOpen(run);
        }
        if (run == NONE) return {.run = startRun(key, press), .isNew = true};
        if (runs[run].count > std::numeric_limits<std::uint32_t>::max() - press.count) return {};
        runs[run].count += press.count;
        runs[run].velocity = press.velocity;
        runs[run].generation = press.generation;
        if (run != latest) {
            unlink(run);
            putFirst(run);
        }
        return {.run = run, .isNew = isNew};
    }
    /// The same for runs that are distinguished by their outcomes alone. False if the memory is full.
    bool press(Key key, const Press& toAdd)
    {
        return press(key, toAdd, [&](const Run& run, Index) { return run.outcome == toAdd.outcome; }).run != NONE;
    }

    /// Takes one press from the key's latest run and calls `noteOff(run, index)`, even if that run has no open press;
    /// then calls it for each press of all other runs, oldest run first, and forgets these. False, without a call, if
    /// there is no run of the key.
    template <class NoteOff>
    bool release(Key key, NoteOff&& noteOff)
    {
        const Index latest = find(heads[slotOf(key)], key);
        if (latest == NONE) return false;
        const Run run = runs[latest];
        takeOne(latest);
        Index older = run.next == NONE ? NONE : detachOlder(latest);
        noteOff(run, latest);
        while (older != NONE) {
            const Run ended = runs[older];
            for (std::uint32_t press = 0; press < ended.count; ++press) noteOff(ended, older);
            open.remove(older);
            recycle(older);
            older = ended.next;
        }
        return true;
    }

    /// Of a press that was added.
    const Run& at(Index run) const { return runs[run]; }

    bool hasOpen(Key key) const
    {
        const Index run = find(heads[slotOf(key)], key);
        return run != NONE && runs[run].count > 0;
    }
    /// Calls `visit(run, index)` for each run of that key with open presses, the latest first, until it returns false.
    /// True if there is such a run and it never did.
    template <class Visit>
    bool allOpen(Key key, Visit&& visit) const
    {
        if (!hasOpen(key)) return false;
        for (Index run = find(heads[slotOf(key)], key); run != NONE; run = find(runs[run].next, key))
            if (!visit(runs[run], run)) return false;
        return true;
    }

    /// Whether any run of the set has open presses; those of `OUTPUT_KEY` keys do not count.
    bool anyOpenIn(const RunSet& set) const { return set.meets(open, used); }
    /// Calls `visit(run, index)` for each of these runs.
    template <class Visit>
    void forEachOpenIn(const RunSet& set, Visit&& visit) const
    {
        set.forEachCommon(open, used, [&](Index run) { visit(runs[run], run); });
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
    // Each slot has a chain of runs; those of one key are sorted, the latest first.
    static constexpr std::size_t SLOTS = 8192;

    static std::size_t slotOf(Key key) { return static_cast<std::size_t>(key * 0x9E3779B97F4A7C15u >> 51); }
    Index find(Index from, Key key) const
    {
        while (from != NONE && runs[from].key != key) from = runs[from].next;
        return from;
    }
    void takeOne(Index run)
    {
        if (runs[run].count == 0) return;
        if (--runs[run].count > 0) return;
        ++usedUp;
        open.remove(run);
    }
    void markOpen(Index run)
    {
        if ((runs[run].key & OUTPUT_KEY) == 0) open.add(run);
    }

    /// `NONE` if the memory is full.
    Index startRun(Key key, const Press& press);
    void unlink(Index run);
    void putFirst(Index run);
    /// Removes the key's other runs from the chain and returns the first, the oldest.
    Index detachOlder(Index latest);
    /// A free run, or `NONE`.
    Index take();
    void recycle(Index run);

    std::vector<Run> runs;
    std::vector<Index> heads;
    RunSet open;           // the runs with open presses, except those of `OUTPUT_KEY` keys
    std::size_t used = 0;  // the number of runs, from the first, that were ever in use
    Index free = NONE;     // the first of the chain of free runs
    std::size_t usedUp = 0;
    std::size_t hand = 0;  // the position at which the search for a run without presses continues
};
}  // namespace Backend::MidiEngine
