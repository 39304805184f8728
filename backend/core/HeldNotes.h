#pragma once

#include <array>
#include <cstdint>
#include <map>

#include "backend/values/OrvMidiMessage.h"

namespace Backend
{
/// Which notes each MIDI input holds: note-ons without a note-off. The backend thread only.
class HeldNotes
{
public:
    /// Follows an event of an input; a note on of velocity 0 is a release.
    void follow(const MidiEngine::OrvMidiMessage& event);

    /// Forgets what an input holds and calls `release(channel, note)` for each note-on without a note-off, lowest
    /// channel and note first.
    template <class Release>
    void release(int input, Release&& release)
    {
        const auto keyboard = held.extract(input);
        if (keyboard.empty()) return;
        for (unsigned key = 0; key < keyboard.mapped().size(); ++key)
            for (auto strikes = keyboard.mapped()[key]; strikes > 0; --strikes)
                release(static_cast<int>(key / NOTES), static_cast<int>(key % NOTES));
    }

private:
    static constexpr unsigned CHANNELS = 16;
    static constexpr unsigned NOTES = 128;

    std::map<int, std::array<std::uint16_t, CHANNELS * NOTES>> held;
};
}  // namespace Backend
