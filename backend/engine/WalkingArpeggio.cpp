#include "backend/engine/WalkingArpeggio.h"

#include <algorithm>

#include "backend/engine/SequencePlayer.h"

namespace Backend::ArpeggioManagement
{
using MidiEngine::OrvMidiMessage;
using State = ArpeggioNote::State;

WalkingArpeggio::WalkingArpeggio(const ArpeggioSetting& setting, Order noteOrder, EqualKeys equalKeys)
    : Arpeggio(setting), order(noteOrder), equal(equalKeys)
{
}

void WalkingArpeggio::addNote(ArpeggioVoice& voice, const OrvMidiMessage& event)
{
    if (event.isNoteOn())
        press(event);
    else
        release(voice, event);
}

void WalkingArpeggio::press(const OrvMidiMessage& event)
{
    const auto next =
        std::ranges::find_if(notes, [&](const ArpeggioNote& note) { return isBefore(event.getD1(), note.getD1()); });
    // A note that still sounds after its key was released does not make the next press of the key ignored.
    const auto isDown = [&](const ArpeggioNote& note) { return note.getD1() == event.getD1() && !note.isReleased(); };
    if (equal == EqualKeys::ignored && next != notes.begin() && isDown(*std::prev(next))) return;
    const auto place = static_cast<std::size_t>(next - notes.begin());
    notes.emplace(next, event);
    if (current != NOWHERE && place <= current) ++current;
}

/// Of several presses of one note, releases the first whose key is down, so that each note-off ends one note.
void WalkingArpeggio::release(ArpeggioVoice& voice, const OrvMidiMessage& event)
{
    const auto note = std::ranges::find_if(
        notes, [&](const ArpeggioNote& each) { return each.getD1() == event.getD1() && !each.isReleased(); });
    if (note == notes.end()) return;
    if (note->playing) {
        note->state = State::released;
        return;
    }
    erase(static_cast<std::size_t>(note - notes.begin()));
    if (notes.empty()) stop(voice);
}

/// `current` keeps its note. If that is the one removed, the next one follows, and after the last the first.
void WalkingArpeggio::erase(std::size_t place)
{
    notes.erase(notes.begin() + static_cast<std::ptrdiff_t>(place));
    if (current == NOWHERE) return;
    if (current > place) --current;
    if (current == notes.size()) current = 0;
}

void WalkingArpeggio::process(ArpeggioVoice& voice, std::int32_t ppq)
{
    if (notes.empty()) return;
    if (current == NOWHERE) current = 0;
    if (std::ranges::all_of(notes, &ArpeggioNote::isReleased)) return stop(voice);

    const std::int32_t startTime = voice.getStartTime();
    if (ArpeggioNote& standing = notes[current]; standing.playing && noteEnds(ppq, startTime)) {
        voice.noteOff(standing);
        const std::size_t ended = current;
        step(voice);
        if (notes[ended].isReleased()) erase(ended);
    }
    ArpeggioNote& next = notes[current];
    if (next.isReleased()) return;
    if (onBeat(ppq, startTime) || (startTime < 0 && next.state == State::held)) {
        startNote(voice, next, ppq);
        next.state = State::sounded;
        start(voice, ppq);
    }
}

void WalkingArpeggio::step(ArpeggioVoice& voice)
{
    if (++current < notes.size()) return;
    current = 0;
    voice.sequence.advance();
}
}  // namespace Backend::ArpeggioManagement
