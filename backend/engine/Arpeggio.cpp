#include "backend/engine/Arpeggio.h"

#include <algorithm>

#include "backend/engine/MidiEngine.h"
#include "backend/engine/SequencePlayer.h"

namespace Backend::ArpeggioManagement
{
namespace
{
/// False for a divisor of 0: an arpeggio with a beat of 0 has no beats.
bool isMultiple(std::int64_t number, std::int64_t divisor) { return divisor != 0 && number % divisor == 0; }

/// The first pulse after `ppq` whose distance from `origin` is a multiple of `divisor`.
std::int32_t nextMultiple(std::int64_t ppq, std::int64_t origin, std::int64_t divisor)
{
    if (divisor == 0) return Arpeggio::NEVER;
    const std::int64_t step = divisor < 0 ? -divisor : divisor;
    const std::int64_t past = ((ppq - origin) % step + step) % step;
    return static_cast<std::int32_t>(std::min<std::int64_t>(ppq - past + step, Arpeggio::NEVER));
}
}  // namespace

Arpeggio::Arpeggio(const ArpeggioSetting& setting) : beat(setting.beat), length(setting.length)
{
    notes.reserve(ROOM_FOR_NOTES);
}

bool Arpeggio::onBeat(std::int32_t ppq, std::int32_t startTime) const
{
    return isMultiple(std::int64_t{ppq} - startTime, beat);
}

bool Arpeggio::noteEnds(std::int32_t ppq, std::int32_t startTime) const
{
    if (beat <= length) return onBeat(ppq, startTime);  // the next beat ends the note
    std::int64_t began = lastNoteOn;
    if (ppq <= began) {  // the clock went back: the note counts as started whole beats earlier
        if (beat == 0) return false;
        began -= ((began - ppq) / beat + 1) * beat;
    }
    return isMultiple(ppq, began + length);
}

std::int32_t Arpeggio::nextActivePulse(std::int32_t ppq, std::int32_t startTime) const
{
    if (notes.empty()) return NEVER;
    if (startTime < 0 || ppq < lastNoteOn) return ppq < NEVER ? ppq + 1 : NEVER;
    const std::int32_t nextBeat = nextMultiple(ppq, startTime, beat);
    if (beat <= length) return nextBeat;
    return std::min(nextBeat, nextMultiple(ppq, 0, std::int64_t{lastNoteOn} + length));
}

void Arpeggio::startNote(ArpeggioVoice& voice, ArpeggioNote& note, std::int32_t ppq)
{
    voice.noteOn(note);
    lastNoteOn = ppq;
}

void Arpeggio::start(ArpeggioVoice& voice, std::int32_t ppq)
{
    lastStart = ppq;
    voice.setStartTime(ppq);
}

void Arpeggio::stop(ArpeggioVoice& voice)
{
    for (ArpeggioNote& note : notes)
        if (note.playing) voice.noteOff(note);
    notes.clear();
    rewind();
    lastStart = lastNoteOn = -1;
    voice.engine.updateStartTime(voice.slice);
    voice.sequence.rewind();
}
}  // namespace Backend::ArpeggioManagement
