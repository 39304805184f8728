#pragma once

#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

#include "backend/engine/NoteMemory.h"
#include "backend/values/OrvMidiMessage.h"

namespace Backend::MidiEngine
{
/// What each open press of a key needs so that its note off follows its note on: the note that its zone made of it, and
/// its velocity, because a note off must pass the same velocity ranges. Presses of one key on one road (input, channel,
/// output, zone) are answered oldest first. Time slice only; grows when a key is played for the first time.
class PressMemory
{
public:
    /// The place of a note's key on its road.
    std::size_t placeOf(const OrvMidiMessage& note);

    void rememberNote(std::size_t place, int sounding) { notes.remember(place, sounding); }
    /// `NoteMemory::NONE` if no press is open.
    int takeNote(std::size_t place) { return notes.take(place); }

    void rememberVelocity(std::size_t place, std::uint8_t velocity)
    {
        velocities.remember(place, velocity);
        lastVelocity[place] = velocity;
    }
    /// With no press open the last one's, 0 if there was none.
    int takeVelocity(std::size_t place)
    {
        const int velocity = velocities.take(place);
        return velocity == NoteMemory::NONE ? lastVelocity[place] : velocity;
    }
    /// Every press: its note and its velocity together, or a later press would get the one without the other.
    void forget();

private:
    std::unordered_map<std::uint64_t, std::size_t> places;
    NoteMemory notes{0};
    NoteMemory velocities{0};
    std::vector<std::uint8_t> lastVelocity;
};
}  // namespace Backend::MidiEngine
