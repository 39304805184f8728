#include "backend/engine/UpDownArpeggio.h"

#include "backend/engine/SequencePlayer.h"

namespace Backend::ArpeggioManagement::Arpeggios
{
/// A layer without a sequence counts as being on the first and on the last node.
void UpDownArpeggio::step(ArpeggioVoice& voice)
{
    auto& sequence = voice.sequence;
    const std::size_t last = notes.size() - 1;
    if (!descending) {
        if (current != last) {
            ++current;
        } else if (!sequence.isOnLastNode()) {
            sequence.advance();
            current = 0;
        } else {
            turnDown(voice);
        }
    } else {
        if (current != 0) {
            --current;
        } else if (!sequence.isOnFirstNode()) {
            sequence.retreat();
            current = last;
        } else {
            turnUp(voice);
        }
    }
}

/// With a single note, the sequence goes to the other node instead.
void UpDownArpeggio::turnDown(ArpeggioVoice& voice)
{
    descending = true;
    if (current > 0)
        --current;
    else
        voice.sequence.retreat();
}

void UpDownArpeggio::turnUp(ArpeggioVoice& voice)
{
    descending = false;
    if (current + 1 < notes.size())
        ++current;
    else
        voice.sequence.advance();
}

void UpDownArpeggio::rewind()
{
    WalkingArpeggio::rewind();
    descending = false;
}
}  // namespace Backend::ArpeggioManagement::Arpeggios
