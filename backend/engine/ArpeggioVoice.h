#pragma once

#include <cstdint>

#include "backend/engine/ArpeggioNote.h"
#include "backend/engine/Slice.h"

namespace Backend::MidiEngine
{
class MidiEngine;
}

namespace Backend::SequenceManagement
{
class SequencePlayer;
}

namespace Backend::ArpeggioManagement
{
/// What an arpeggio needs to play inside a slice: the engine, to which its notes go, directly or through the sequence
/// of the layer, and the grid of beats.
struct ArpeggioVoice {
    MidiEngine::Slice& slice;
    MidiEngine::MidiEngine& engine;
    SequenceManagement::SequencePlayer& sequence;

    /// Sends the note. Both pass it through the node of the sequence at which its note-on was sent.
    void noteOn(ArpeggioNote& note);
    void noteOff(ArpeggioNote& note);

    /// The pulse in which the grid begins, -1 while no arpeggio runs.
    std::int32_t getStartTime() const;
    /// Begins the grid, unless another arpeggio runs.
    void setStartTime(std::int32_t ppq);

private:
    void send(const ArpeggioNote& note);
};
}  // namespace Backend::ArpeggioManagement
