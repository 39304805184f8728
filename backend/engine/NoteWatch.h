#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>

#include "backend/model/NoteActivity.h"
#include "backend/values/OrvMidiMessage.h"

namespace Backend::MidiEngine
{
/// Counts the notes at the places that `NoteActivity` names, for the window. Slices count, with the engine lock held;
/// any other thread looks, without it. Nothing waits or allocates.
class NoteWatch
{
public:
    /// Nothing is held. Slices, or with the engine lock held.
    void clear();

    /// A note that comes to the layers, or goes to an output without them. Slices.
    void pass(const OrvMidiMessage& note);
    /// A note that a layer sends; the note of any other sender is ignored. Slices.
    void play(const OrvMidiMessage& note);

    /// What is held, and what was played since the last call; a note that ended in between is reported once. False,
    /// with `activity` as it was, if nothing has changed. One thread.
    bool take(NoteActivity& activity);

private:
    static constexpr std::size_t WORDS = 2;  // of 64 notes
    static constexpr std::size_t NO_ZONE = NoteActivity::ZONES;

    /// The notes at one place.
    class Row
    {
    public:
        void start(std::size_t note);
        void end(std::size_t note);
        void clear();
        /// `ended` becomes true if some of them are not held any more.
        NoteActivity::Notes take(bool& ended);

    private:
        std::array<std::uint8_t, 64 * WORDS> counts{};  // of the slices
        std::array<std::atomic<std::uint64_t>, WORDS> held{};
        std::array<std::atomic<std::uint64_t>, WORDS> started{};  // since they were taken
    };

    void count(Row& row, const OrvMidiMessage& event, std::size_t note);

    std::array<Row, NoteActivity::ZONES + 1> zones;  // the last one is of no zone
    std::array<Row, NoteActivity::LAYERS> layers;
    std::atomic<bool> isChanged{false};
};
}  // namespace Backend::MidiEngine
