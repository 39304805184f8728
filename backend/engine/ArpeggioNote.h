#pragma once

#include <cstddef>
#include <cstdint>

#include "backend/values/OrvMidiMessage.h"

namespace Backend::ArpeggioManagement
{
/// A note that an arpeggio holds, ready to go out: the layer settled its output, channel, pitch and velocity.
class ArpeggioNote : public MidiEngine::OrvMidiMessage
{
public:
    enum class State : std::uint8_t {
        held,      ///< its key is down
        released,  ///< its key is up; it goes at its end
        sounded    ///< held, and the walk has been there
    };

    explicit ArpeggioNote(const MidiEngine::OrvMidiMessage& event) : OrvMidiMessage(event) {}

    bool isReleased() const { return state == State::released; }

    State state = State::held;
    bool playing = false;  ///< its note on went out, its note off not yet
    std::size_t node = 0;  ///< of the sequence, at its note on: the note off takes the same
};
}  // namespace Backend::ArpeggioManagement
