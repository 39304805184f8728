#pragma once

#include <array>
#include <bitset>
#include <cstdint>

#include "backend/values/OrvMidiMessage.h"

namespace Backend::MidiEngine
{
/// The notes and pedals that a MIDI input holds: note-ons without a note-off, and pedals that are down. Guarded by the
/// engine lock.
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

    /// Calls `release(channel, controller)` for each pedal that is down, lowest channel first.
    template <class Release>
    void forEachPedal(Release&& release) const
    {
        for (unsigned pedal = 0; pedal < pedals.size(); ++pedal)
            if (pedals[pedal])
                release(static_cast<int>(pedal / PEDALS), static_cast<int>(FIRST_PEDAL + pedal % PEDALS));
    }

private:
    static constexpr unsigned FIRST_PEDAL = 64;
    static constexpr unsigned PEDALS = 4;
    static constexpr unsigned CHANNELS = 16;
    static constexpr unsigned NOTES = 128;

    std::array<std::uint16_t, CHANNELS * NOTES> held{};
    std::bitset<CHANNELS * PEDALS> pedals;
};
}  // namespace Backend::MidiEngine
