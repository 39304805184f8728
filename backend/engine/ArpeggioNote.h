#pragma once

#include <cstddef>
#include <cstdint>

#include "backend/values/OrvMidiMessage.h"

namespace Backend::ArpeggioManagement
{
/// A note that an arpeggio plays. Output, channel, note number and velocity are those that the layer gave it.
class ArpeggioNote : public MidiEngine::OrvMidiMessage
{
public:
    enum class State : std::uint8_t {
        held,      ///< its key is down
        released,  ///< its key is up; the note is removed when it ends
        sounded    ///< its key is down, and the arpeggio has played it
    };

    explicit ArpeggioNote(const MidiEngine::OrvMidiMessage& event) : OrvMidiMessage(event) {}

    bool isReleased() const { return state == State::released; }

    State state = State::held;
    bool playing = false;  ///< its note-on was sent, its note-off not yet
    std::size_t node = 0;  ///< of the sequence, at its note-on; its note-off goes through the same node
};
}  // namespace Backend::ArpeggioManagement
