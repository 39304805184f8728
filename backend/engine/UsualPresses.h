#pragma once

#include <array>
#include <cstdint>

#include "backend/values/OrvMidiMessage.h"

namespace Backend::MidiEngine
{
/// The open presses of notes that go through the layers of the moment, in no zone, as long as each note has presses
/// from one source and of one velocity class only: nearly always. So a press costs a look into a table instead of
/// `PressMemory`, which has all others. Time slice only.
class UsualPresses
{
public:
    static constexpr int NOT_HERE = -1;

    /// What distinguishes such events of one note: their input and channel.
    using Source = std::uint16_t;
    static Source sourceOf(const OrvMidiMessage& note)
    {
        return static_cast<Source>(static_cast<std::uint8_t>(note.getInput()) << 8 |
                                   static_cast<std::uint8_t>(note.getChannel()));
    }
    /// Whether a note goes through the layers, in no zone.
    static bool isUsual(const OrvMidiMessage& note)
    {
        constexpr std::uint32_t ANY_INPUT = 0xFF0000;
        constexpr std::uint32_t USUAL = OrvMidiMessage(OrvMidiMessage::Fields{}).getRoute() | ANY_INPUT;
        return (note.getRoute() | ANY_INPUT) == USUAL;
    }

    /// False if the press has to be remembered elsewhere. If the note has open presses of that source here, they have
    /// to be moved there first.
    bool press(const OrvMidiMessage& note, std::uint8_t velocityClass)
    {
        Cell& cell = cells[note.getD1()];
        const Source source = sourceOf(note);
        if (cell.count == 0) {
            if (cell.elsewhere > 0) return false;
            cell.source = source;
            cell.velocityClass = velocityClass;
        } else if (cell.source != source || cell.velocityClass != velocityClass) {
            return false;
        }
        ++cell.count;
        cell.velocity = note.getD2();
        return true;
    }

    /// Takes a press, if one is open. Its velocity, or `NOT_HERE` if the presses of the source are elsewhere.
    int release(const OrvMidiMessage& note)
    {
        Cell& cell = cells[note.getD1()];
        if (cell.source != sourceOf(note)) return NOT_HERE;
        if (cell.count > 0)
            --cell.count;
        else if (cell.elsewhere > 0 || cell.velocity == 0)
            return NOT_HERE;
        return cell.velocity;
    }

    /// Presses of that note, from any source, that are remembered elsewhere, and that ended there.
    void addElsewhere(std::uint8_t note, std::uint32_t presses) { cells[note].elsewhere += presses; }
    void removeElsewhere(std::uint8_t note) { --cells[note].elsewhere; }

    /// Takes all open presses of a note and calls `move(noteOn, count)`, if there are any.
    template <class Move>
    void take(int note, Move&& move)
    {
        Cell& cell = cells[static_cast<std::size_t>(note)];
        const Cell taken = cell;
        cell = {.elsewhere = taken.elsewhere};
        if (taken.count == 0) return;
        OrvMidiMessage noteOn({.type = MessageType::noteOn,
                               .d1 = note,
                               .d2 = taken.velocity,
                               .channel = taken.source & 0xFF,
                               .input = taken.source >> 8});
        noteOn.setDefaultChannel(true);
        move(noteOn, taken.count);
    }

    bool has(const OrvMidiMessage& note) const
    {
        const Cell& cell = cells[note.getD1()];
        return cell.count > 0 && cell.source == sourceOf(note);
    }

    void clear() { cells = {}; }

private:
    struct Cell {
        std::uint32_t count = 0;
        std::uint32_t elsewhere = 0;  ///< the open presses of the note that are elsewhere
        Source source = 0;
        std::uint8_t velocity = 0;  ///< of the latest press, 0 if there was none
        std::uint8_t velocityClass = 0;
    };

    std::array<Cell, 256> cells{};
};
}  // namespace Backend::MidiEngine
