#include "backend/engine/EngineLayer.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "backend/engine/MidiEngine.h"
#include "backend/model/NoteActivity.h"

namespace Backend::Layers
{
using MidiEngine::DefaultRoute;
using MidiEngine::Note;
using MidiEngine::OrvMidiMessage;
using MidiEngine::Slice;

namespace
{
constexpr std::size_t NOTES = 256;  // the number of values of a data byte
constexpr LayerId WATCHED_LAYERS{MidiEngine::NoteActivity::LAYERS};

OrvMidiMessage withNote(OrvMidiMessage event, int note)
{
    event.setD1(note);
    return event;
}

/// The note that a layer makes of a note. The result is a signed byte, not yet limited to the range of notes.
std::int64_t transposed(const Layer& layer, int played)
{
    const int key = layer.key.getNumber();
    const auto signedByte = [](int value) { return static_cast<int>(static_cast<std::int8_t>(value)); };
    if (key >= 0 && key <= 127)
        return signedByte(Note(signedByte(layer.transpose.value), Note(played), layer.key).getNumber());
    return layer.transpose.appliedTo(played);
}

std::int64_t shapedVelocity(const Layer& layer, int velocity)
{
    if (!layer.velocity.relative) return layer.velocity.value;
    // The quotient is computed first, in double precision, then the product.
    const double ratio = static_cast<double>(layer.compress.numerator) / layer.compress.denominator;
    return static_cast<std::int64_t>(ratio * velocity) + layer.velocity.value;
}
}  // namespace

EngineLayer::EngineLayer(const Layer& layer)
    : keepsNotes(layer.mono || layer.toggle.mode != NoteToggle::Mode::off || layer.arpeggio),
      minVelocity(layer.minVelocity),
      maxVelocity(layer.maxVelocity),
      zone(layer.zone),
      output(layer.output),
      channel(layer.channel >= MidiEngine::NoteCounters::CHANNELS ? std::int8_t{0} : layer.channel),
      useNoteStack(layer.useNoteStack),
      shownNumber(layer.id < WATCHED_LAYERS ? static_cast<std::uint8_t>(layer.id + 1) : std::uint8_t{0}),
      settings(layer.asPlayed()),
      mono(layer.mono),
      toggle(layer.toggle.mode),
      minNote(layer.minNote.getNumber()),
      maxNote(layer.maxNote.getNumber()),
      sequence(layer.sequenceSetting),
      arpeggio(layer.arpeggio ? ArpeggioManagement::createArpeggio(*layer.arpeggio) : nullptr),
      defaultOutputs(NOTES)
{
    for (std::size_t byte = 0; byte < NOTES; ++byte) {
        const int note = static_cast<std::int8_t>(byte);
        sounding[byte] = static_cast<std::uint8_t>(MidiEngine::foldNote(transposed(layer, note)));
        velocities[byte] =
            static_cast<std::uint8_t>(std::clamp<std::int64_t>(shapedVelocity(layer, static_cast<int>(byte)), 0, 127));
    }
}

bool EngineLayer::hasInRange(std::uint8_t note) const
{
    const auto number = static_cast<std::int8_t>(note);
    return number >= minNote && number <= maxNote;
}

void EngineLayer::keepNote(Slice& slice, MidiEngine::MidiEngine& engine, const OrvMidiMessage& event)
{
    if (event.isNoteOn())
        keepNoteOn(slice, engine, event);
    else if (toggle == NoteToggle::Mode::off)  // with toggle, note-offs have no effect
        keepNoteOff(slice, engine, event);
}

void EngineLayer::keepNoteOn(Slice& slice, MidiEngine::MidiEngine& engine, const OrvMidiMessage& event)
{
    const int note = event.getD1();
    struct {
        std::optional<OrvMidiMessage> noteOff;
        int output = 0;
    } delayed;
    const auto endOldNote = [&] {
        const auto old = noteStack.top();
        if (old.note < 0) return;
        OrvMidiMessage noteOff = withNote(event, old.note);
        noteOff.setD2(old.velocity);
        if (toggle != NoteToggle::Mode::off) {
            toggledNotes[noteOff.getD1()] = false;
            noteStack.remove(old.note);
        }
        if (hasArpeggio())
            emitKeptNoteOff(slice, engine, noteOff);
        else  // the old note ends after the new one begins: legato
            delayed = {.noteOff = noteOff, .output = getKeptOutput(slice, engine, old.note)};
    };

    if (toggle == NoteToggle::Mode::off) {
        // The older note stays in the stack; it sounds again when the newer key is released.
        if (mono) endOldNote();
    } else {
        const auto place = static_cast<std::size_t>(note);
        if (toggledNotes[place] && toggle == NoteToggle::Mode::type1) {
            toggledNotes[place] = false;
            emitKeptNoteOff(slice, engine, event);
            noteStack.remove(note);
            return;
        }
        if (mono) endOldNote();
        if (toggledNotes[place]) emitKeptNoteOff(slice, engine, event);  // type 2: the note is played again
        toggledNotes[place] = true;
    }
    if (mono) noteStack.push(note, event.getD2());  // only mono layers use the stack
    emitKeptNoteOn(slice, engine, event);
    if (delayed.noteOff) sendNoteOff(slice, engine, *delayed.noteOff, delayed.output);
}

void EngineLayer::keepNoteOff(Slice& slice, MidiEngine::MidiEngine& engine, const OrvMidiMessage& event)
{
    if (!mono) return emitKeptNoteOff(slice, engine, event);
    const bool wasLast = noteStack.remove(event.getD1());
    if (!wasLast) return;
    const int keptOutput = getKeptOutput(slice, engine, event.getD1());
    if (hasArpeggio()) emitKeptNoteOff(slice, engine, event);
    if (const auto older = noteStack.top(); older.note >= 0) {
        OrvMidiMessage noteOn = withNote(event, older.note);
        if (noteOn.getD2() == 0) noteOn.setD2(older.velocity);  // a velocity of 0 would make it a note-off
        emitKeptNoteOn(slice, engine, noteOn);
    }
    if (!hasArpeggio()) sendNoteOff(slice, engine, event, keptOutput);
}

void EngineLayer::emitKeptNoteOn(Slice& slice, MidiEngine::MidiEngine& engine, const OrvMidiMessage& event)
{
    const int port = getOutput(slice, engine);
    if (!engine.isOutputEnabled(slice, port)) return engine.drop(slice, event, "output missing or not enabled");
    if (!hasArpeggio()) {
        defaultOutputs.setOutput(event.getD1(), port);
        return sendNoteOn(slice, engine, event, port);
    }
    OrvMidiMessage played = shaped(event, port);
    played.setToNoteOn();
    addToArpeggio(slice, engine, played);
}

/// An arpeggio gets the note-off even if the output is missing, so that it stops playing the released key.
void EngineLayer::emitKeptNoteOff(Slice& slice, MidiEngine::MidiEngine& engine, const OrvMidiMessage& event)
{
    if (!hasArpeggio()) return sendNoteOff(slice, engine, event, getKeptOutput(slice, engine, event.getD1()));
    OrvMidiMessage played = shaped(event, output);
    played.setToNoteOff();
    addToArpeggio(slice, engine, played);
}

int EngineLayer::getOutput(Slice& slice, MidiEngine::MidiEngine& engine) const
{
    return output == OrvMidiMessage::DEFAULT_OUTPUT ? engine.getDefaultMidiOutput(slice) : output;
}

int EngineLayer::getKeptOutput(Slice& slice, MidiEngine::MidiEngine& engine, int note) const
{
    if (output != OrvMidiMessage::DEFAULT_OUTPUT) return output;
    const int kept = defaultOutputs.getOutput(static_cast<std::size_t>(note));
    return kept == MidiEngine::DefaultOutputMemory::NONE ? engine.getDefaultMidiOutput(slice) : kept;
}

void EngineLayer::addToArpeggio(Slice& slice, MidiEngine::MidiEngine& engine, const OrvMidiMessage& event)
{
    ArpeggioManagement::ArpeggioVoice voice{slice, engine, sequence};
    arpeggio->addNote(voice, event);
    engine.wakeArpeggios(slice);
}

void EngineLayer::playArpeggio(Slice& slice, MidiEngine::MidiEngine& engine, std::int32_t ppq)
{
    ArpeggioManagement::ArpeggioVoice voice{slice, engine, sequence};
    arpeggio->process(voice, ppq);
}

OrvMidiMessage EngineLayer::shaped(const OrvMidiMessage& event, int port) const
{
    OrvMidiMessage played = event;
    played.setOutput(port);
    played.setChannel(channel);
    played.setD1(sounding[event.getD1()]);
    played.setD2(velocities[event.getD2()]);
    played.setLayer(shownNumber, event.getD1());
    return played;
}

void EngineLayer::emitNoteOn(Slice& slice, MidiEngine::MidiEngine& engine, const OrvMidiMessage& event,
                             DefaultRoute route)
{
    const int port = getOutput(slice, engine);
    if (!engine.isOutputEnabled(slice, port)) return engine.drop(slice, event, "output missing or not enabled");
    if (output == OrvMidiMessage::DEFAULT_OUTPUT && !defaultOutputs.pressUsual(event.getD1(), route))
        return emitUnusualNoteOn(slice, engine, event, route);
    sendNoteOn(slice, engine, event, port);
}

void EngineLayer::emitUnusualNoteOn(Slice& slice, MidiEngine::MidiEngine& engine, const OrvMidiMessage& event,
                                    DefaultRoute route)
{
    if (!defaultOutputs.press(engine.getPresses(slice), event.getD1(), route))
        return engine.drop(slice, event, "too many keys are down");
    sendNoteOn(slice, engine, event, route.getDefaultOutput());
}

void EngineLayer::emitNoteOff(Slice& slice, MidiEngine::MidiEngine& engine, const OrvMidiMessage& event,
                              DefaultRoute route)
{
    if (output != OrvMidiMessage::DEFAULT_OUTPUT) return sendNoteOff(slice, engine, event, output);
    if (defaultOutputs.releaseUsual(event.getD1(), route))
        return sendNoteOff(slice, engine, event, route.getDefaultOutput());
    emitUnusualNoteOff(slice, engine, event, route);
}

void EngineLayer::emitUnusualNoteOff(Slice& slice, MidiEngine::MidiEngine& engine, const OrvMidiMessage& event,
                                     DefaultRoute route)
{
    defaultOutputs.release(engine.getPresses(slice), event.getD1(), route,
                           [&](int port) { sendNoteOff(slice, engine, event, port); });
}

void EngineLayer::sendNoteOn(Slice& slice, MidiEngine::MidiEngine& engine, const OrvMidiMessage& event, int port)
{
    OrvMidiMessage played = shaped(event, port);
    played.setToNoteOn();
    engine.playNoteOn(slice, played);
}

void EngineLayer::sendNoteOff(Slice& slice, MidiEngine::MidiEngine& engine, const OrvMidiMessage& event, int port)
{
    if (!engine.isOutputEnabled(slice, port)) return engine.drop(slice, event, "output missing or not enabled");
    OrvMidiMessage played = shaped(event, port);
    played.setToNoteOff();
    engine.playNoteOff(slice, played, useNoteStack);
}

void EngineLayer::playOther(Slice& slice, MidiEngine::MidiEngine& engine, const OrvMidiMessage& event)
{
    if (!takesZone(event)) return;
    OrvMidiMessage played = event;
    played.setOutput(getOutput(slice, engine));
    if (!engine.isOutputEnabled(slice, played.getOutput()))
        return engine.drop(slice, played, "output missing or not enabled");
    played.setChannel(channel);
    if (engine.isFirstTo(slice, played.getOutput(), played.getChannel())) engine.playMidiInternal(slice, played, false);
}

void EngineLayer::reset(Slice& slice, MidiEngine::MidiEngine& engine)
{
    if (hasArpeggio()) {
        ArpeggioManagement::ArpeggioVoice voice{slice, engine, sequence};
        arpeggio->stop(voice);
    }
    noteStack.clear();
    toggledNotes.reset();
    defaultOutputs.clear();
    taken.clear();
}

void EngineLayer::continueFrom(EngineLayer& other) noexcept
{
    sequence.continueFrom(other.sequence);
    arpeggio.swap(other.arpeggio);
    std::swap(noteStack, other.noteStack);
    toggledNotes = other.toggledNotes;
    std::swap(defaultOutputs, other.defaultOutputs);
    taken = other.taken;
}

void EngineLayer::endToggledNotes(Slice& slice, MidiEngine::MidiEngine& engine)
{
    constexpr int VELOCITY = 100;
    if (toggle == NoteToggle::Mode::off) return;
    for (std::size_t note = 0; note < toggledNotes.size(); ++note) {
        if (!toggledNotes[note]) continue;
        emitKeptNoteOff(slice, engine,
                        {{.type = MidiEngine::MessageType::noteOff, .d1 = static_cast<int>(note), .d2 = VELOCITY}});
    }
    toggledNotes.reset();
    noteStack.clear();
}
}  // namespace Backend::Layers
