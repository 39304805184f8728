#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "backend/engine/PressMemory.h"

namespace Backend::MidiEngine
{
/// The route of an event and the present default output, in one word.
class DefaultRoute
{
public:
    /// For an event whose output is the default one; the channel is the one that the event names.
    DefaultRoute(const OrvMidiMessage& event, int defaultOutput)
        : word(Word{event.getRoute() ^ static_cast<std::uint8_t>(event.getChannel()) << 8u} << 32 |
               Word{PressMemory::byte(defaultOutput)} << 24)
    {
    }

    int getDefaultOutput() const { return static_cast<std::int8_t>(word >> 24); }

private:
    friend class DefaultOutputMemory;
    using Word = std::uint64_t;

    Word word;
};

/// Remembers the output that each open press got when it was the default output, for the notes of one layer or of the
/// direct path. The rules are those of `PressMemory`. As long as a note has one route and one output, which is nearly
/// always the case, this table counts its presses; all other cases are stored in the `PressMemory`. Time slice only.
class DefaultOutputMemory
{
public:
    static constexpr int NONE = -1;

    /// The number of owners.
    static constexpr std::uint32_t OWNERS = 1u << 20;

    explicit DefaultOutputMemory(std::size_t notes) : cells(notes) {}

    /// Distinguishes this table from the others that share a `PressMemory`; below `OWNERS`. While nothing is stored.
    void setOwner(std::uint32_t owner) { ownKey = PressMemory::OUTPUT_KEY | PressMemory::Key{owner} << 32; }
    std::uint32_t getOwner() const { return static_cast<std::uint32_t>(ownKey >> 32) % OWNERS; }

    /// Counts a note-on to the default output. False if the note has another route or output: then call `press`.
    bool pressUsual(std::size_t note, DefaultRoute route)
    {
        Word& cell = cells[note];
        if (cell - route.word >= MOST) return false;
        ++cell;
        return true;
    }
    /// False if the memory is full; then the note-on must not be played.
    bool press(PressMemory& presses, std::size_t note, DefaultRoute route);

    /// True if the note-off goes to the default output only. False if the note has another route or output: then call
    /// `release`.
    bool releaseUsual(std::size_t note, DefaultRoute route)
    {
        Word& cell = cells[note];
        const Word count = cell - route.word;
        if (count > MOST) return false;
        if (count > 0) --cell;
        return true;
    }
    /// Calls `noteOff(output)` for the output of the latest run, then for each press that got another output. For a
    /// note without presses that is the present default output.
    template <class NoteOff>
    void release(PressMemory& presses, std::size_t note, DefaultRoute route, NoteOff&& noteOff)
    {
        if (releaseUsual(note, route)) return noteOff(route.getDefaultOutput());
        Word& cell = cells[note];
        if (isOf(cell, route)) {
            if ((cell & MOST) > 0) --cell;
            return noteOff(outputOf(cell));
        }
        const auto toOutput = [&](const PressMemory::Run& run, PressMemory::Index) { noteOff(int{run.outcome.value}); };
        if (!presses.release(keyOf(note, route), toOutput)) noteOff(route.getDefaultOutput());
    }

    // For a layer on which each note sounds at most once, on any route

    void setOutput(std::size_t note, int output)
    {
        isEmpty = false;
        cells[note] = ANY_ROUTE | Word{PressMemory::byte(output)} << 24;
    }
    /// The output that the last note-on of the note got, or `NONE`.
    int getOutput(std::size_t note) const { return cells[note] == 0 ? NONE : outputOf(cells[note]); }

    /// Forgets the outputs that are gone. Those in the `PressMemory` are forgotten by `PressMemory::forgetOutputs`.
    template <class IsGone>
    void forget(IsGone&& isGone)
    {
        if (isEmpty) return;
        for (Word& cell : cells)
            if (cell != 0 && cell != IN_PRESSES && isGone(outputOf(cell)))
                cell = (cell & ANY_ROUTE) == ANY_ROUTE ? 0 : IN_PRESSES;  // the route may have other runs
    }

    void clear();

private:
    using Word = DefaultRoute::Word;

    // A cell: route, output, number of open presses; 0 if nothing is stored. No route has all bits set.
    static constexpr Word MOST = 0xFFFFFF;
    static constexpr Word ANY_ROUTE = Word{0xFFFFFFFF} << 32;
    static constexpr Word IN_PRESSES = ~Word{0};

    static int outputOf(Word cell) { return static_cast<std::uint8_t>(cell >> 24); }
    static bool isOf(Word cell, DefaultRoute route) { return cell >> 32 == route.word >> 32; }
    PressMemory::Key keyOf(std::size_t note, DefaultRoute route) const
    {
        return ownKey ^ route.word >> 32 ^ PressMemory::Key{note} << 52;
    }

    std::vector<Word> cells;
    PressMemory::Key ownKey = PressMemory::OUTPUT_KEY;
    bool isEmpty = true;
};
}  // namespace Backend::MidiEngine
