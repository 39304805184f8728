#include "backend/engine/ArpeggioVoice.h"

#include "backend/engine/MidiEngine.h"
#include "backend/engine/SequencePlayer.h"

namespace Backend::ArpeggioManagement
{
void ArpeggioVoice::noteOn(ArpeggioNote& note)
{
    note.setToNoteOn();
    note.playing = true;
    note.node = sequence.getCurrentNode();
    send(note);
}

void ArpeggioVoice::noteOff(ArpeggioNote& note)
{
    note.setToNoteOff();
    note.playing = false;
    send(note);
}

void ArpeggioVoice::send(const ArpeggioNote& note)
{
    if (sequence.isEmpty())
        engine.playMidiInternal(slice, note, false);
    else
        sequence.play(slice, engine, note, note.node);
}

std::int32_t ArpeggioVoice::getStartTime() const { return engine.getStartTime(slice); }

void ArpeggioVoice::setStartTime(std::int32_t ppq) { engine.setStartTime(slice, ppq); }
}  // namespace Backend::ArpeggioManagement
