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
/// What an arpeggio plays with, inside a slice: the way out of its notes, straight or through the layer's sequence, and
/// the grid.
struct ArpeggioVoice {
    MidiEngine::Slice& slice;
    MidiEngine::MidiEngine& engine;
    SequenceManagement::SequencePlayer& sequence;

    /// Both go through the node of the sequence in which the note began.
    void noteOn(ArpeggioNote& note);
    void noteOff(ArpeggioNote& note);

    /// The pulse in which the grid begins, -1 while no arpeggio runs.
    std::int32_t getStartTime() const;
    /// The first one begins the grid.
    void setStartTime(std::int32_t ppq);

private:
    void send(const ArpeggioNote& note);
};
}  // namespace Backend::ArpeggioManagement
