#include "backend/engine/ChordArpeggio.h"

#include <algorithm>

#include "backend/engine/SequencePlayer.h"

namespace Backend::ArpeggioManagement::Arpeggios
{
using MidiEngine::OrvMidiMessage;

void ChordArpeggio::addNote(ArpeggioVoice&, const OrvMidiMessage& event)
{
    if (event.isNoteOn()) return static_cast<void>(notes.emplace_back(event));
    for (ArpeggioNote& note : notes)
        if (note.getD1() == event.getD1()) note.state = ArpeggioNote::State::released;
}

void ChordArpeggio::process(ArpeggioVoice& voice, std::int32_t ppq)
{
    if (notes.empty()) return;
    const std::int32_t startTime = voice.getStartTime();
    const bool isOnBeat = onBeat(ppq, startTime);
    if (noteEnds(ppq, startTime)) end(voice);
    if (std::ranges::all_of(notes, &ArpeggioNote::isReleased)) return stop(voice);

    // The sequence advances between the note-offs and the note-ons of a beat.
    if (isOnBeat && lastStart >= 0) voice.sequence.advance();
    const bool begins = startTime < 0;
    if (begins || (isOnBeat && lastStart < 0)) start(voice, ppq);
    for (ArpeggioNote& note : notes)
        if (!note.isReleased() && (begins || (isOnBeat && !note.playing))) startNote(voice, note, ppq);
}

/// Ends the sounding notes. Those whose keys are down are kept and played again on the next beat.
void ChordArpeggio::end(ArpeggioVoice& voice)
{
    for (ArpeggioNote& note : notes)
        if (note.playing) voice.noteOff(note);
    std::erase_if(notes, [](const ArpeggioNote& note) { return note.isReleased(); });
}
}  // namespace Backend::ArpeggioManagement::Arpeggios
