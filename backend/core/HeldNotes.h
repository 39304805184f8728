#pragma once

#include <array>
#include <cstdint>
#include <map>

#include "backend/values/OrvMidiMessage.h"

namespace Backend
{
/// The notes that each MIDI input holds: note-ons without a note-off. The backend thread only.
class HeldNotes
{
public:
    /// Records an event of an input; a note-on with velocity 0 counts as a note-off.
    void follow(const MidiEngine::OrvMidiMessage& event);

    /// Forgets the notes of an input and calls `release(channel, note)` for each note-on without a note-off, lowest
    /// channel and note first.
    template <class Release>
    void release(int input, Release&& release)
    {
        const auto keyboard = held.extract(input);
        if (keyboard.empty()) return;
        for (unsigned key = 0; key < keyboard.mapped().size(); ++key)
            for (auto count = keyboard.mapped()[key]; count > 0; --count)
                release(static_cast<int>(key / NOTES), static_cast<int>(key % NOTES));
    }

private:
    static constexpr unsigned CHANNELS = 16;
    static constexpr unsigned NOTES = 128;

    std::map<int, std::array<std::uint16_t, CHANNELS * NOTES>> held;
};
}  // namespace Backend
