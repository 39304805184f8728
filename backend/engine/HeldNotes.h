#pragma once

#include <array>
#include <cstdint>

#include "backend/values/OrvMidiMessage.h"

namespace Backend::MidiEngine
{
/// The notes that a MIDI input holds: note-ons without a note-off. Guarded by the engine lock.
class HeldNotes
{
public:
    /// Records an event of the input; a note-on with velocity 0 counts as a note-off. Allocates nothing.
    void follow(const OrvMidiMessage& event);

    /// Calls `release(channel, note)` for each note-on without a note-off, lowest channel and note first.
    template <class Release>
    void forEach(Release&& release) const
    {
        for (unsigned key = 0; key < held.size(); ++key)
            for (auto count = held[key]; count > 0; --count)
                release(static_cast<int>(key / NOTES), static_cast<int>(key % NOTES));
    }

private:
    static constexpr unsigned CHANNELS = 16;
    static constexpr unsigned NOTES = 128;

    std::array<std::uint16_t, CHANNELS * NOTES> held{};
};
}  // namespace Backend::MidiEngine
