#pragma once

#include <array>
#include <bitset>
#include <cstdint>
#include <memory>

#include "backend/engine/Arpeggio.h"
#include "backend/engine/DefaultOutputMemory.h"
#include "backend/engine/HeldNoteStack.h"
#include "backend/engine/PressMemory.h"
#include "backend/engine/SequencePlayer.h"
#include "backend/engine/Slice.h"
#include "backend/model/Layer.h"
#include "backend/values/OrvMidiMessage.h"

namespace Backend::MidiEngine
{
class MidiEngine;
}

namespace Backend::Layers
{
/// A layer as the engine plays it: tables computed from its settings, and the notes that it holds. It takes the notes
/// of its note range, velocity range and zone, and sends them, with its own transposition, velocity, channel and
/// output, to the player or to its arpeggio. Its settings never change: an edited layer is a new `EngineLayer`, which
/// replaces this one after a reset or, if held notes ring on, at once, while this one plays what it holds. Time slice
/// only, except the constructor.
class EngineLayer
{
public:
    explicit EngineLayer(const Layer& settings);

    // Replacing one that has sounding notes

    /// Whether the layers have equal settings, but for their number and selection.
    bool isLike(const EngineLayer& other) const { return settings == other.settings; }
    /// Takes over all that a layer with equal settings holds and remembers. `other` is not played any more.
    void continueFrom(EngineLayer& other) noexcept;
    /// Ends the notes that a toggle layer keeps on, the lowest first.
    void endToggledNotes(MidiEngine::Slice& slice, MidiEngine::MidiEngine& engine);
    /// Whether a key is held whose press the layer took, or its arpeggio plays.
    bool holdsAny(const MidiEngine::PressMemory& presses) const
    {
        return (arpeggio != nullptr && !arpeggio->isEmpty()) ||
               (toggle == NoteToggle::Mode::off && presses.anyOpenIn(taken));
    }
    bool hasVelocityRange() const { return settings.hasVelocityRange(); }

    /// Distinguishes the layer from all others that play, see `DefaultOutputMemory::setOwner`.
    std::uint32_t getOwner() const { return defaultOutputs.getOwner(); }
    void setOwner(std::uint32_t owner) { defaultOutputs.setOwner(owner); }

    /// The runs of presses that the layer took.
    MidiEngine::RunSet& getTaken() { return taken; }
    const MidiEngine::RunSet& getTaken() const { return taken; }

    /// Whether the layer takes that note (a data byte, compared as a signed one).
    bool hasInRange(std::uint8_t note) const;
    /// Whether the layer takes the velocity and the zone of that note.
    bool takes(const MidiEngine::OrvMidiMessage& event) const { return takesVelocity(event) && takesZone(event); }

    /// Plays a note-on or note-off within the layer's note range, if the layer takes it. That may play nothing, or also
    /// notes of other keys (mono, toggle). `route` is that of the event.
    void playNote(MidiEngine::Slice& slice, MidiEngine::MidiEngine& engine, const MidiEngine::OrvMidiMessage& event,
                  MidiEngine::DefaultRoute route)
    {
        if (takes(event)) playTaken(slice, engine, event, route);
    }
    /// The same for an event that the layer takes, or for the note-off of a press that it took.
    void playTaken(MidiEngine::Slice& slice, MidiEngine::MidiEngine& engine, const MidiEngine::OrvMidiMessage& event,
                   MidiEngine::DefaultRoute route)
    {
        if (keepsNotes)
            keepNote(slice, engine, event);
        else if (event.isNoteOn())
            emitNoteOn(slice, engine, event, route);
        else
            emitNoteOff(slice, engine, event, route);
    }

    /// Plays any other event, unless another layer has sent it to the same output and channel.
    void playOther(MidiEngine::Slice& slice, MidiEngine::MidiEngine& engine, const MidiEngine::OrvMidiMessage& event);

    bool hasArpeggio() const { return arpeggio != nullptr; }
    /// See `Arpeggio::getLastStart`; -1 without an arpeggio.
    std::int32_t getArpeggioStart() const { return arpeggio != nullptr ? arpeggio->getLastStart() : -1; }

    /// The step of the sequence that the arpeggio plays; -1 while it plays none.
    int getSequenceStep() const
    {
        return getArpeggioStart() < 0 || sequence.isEmpty() ? -1 : static_cast<int>(sequence.getCurrentNode());
    }

    // For a layer with an arpeggio, see `Arpeggio::process` and `Arpeggio::nextActivePulse`.
    void playArpeggio(MidiEngine::Slice& slice, MidiEngine::MidiEngine& engine, std::int32_t ppq);
    std::int32_t nextArpeggioPulse(std::int32_t ppq, std::int32_t startTime) const
    {
        return arpeggio->nextActivePulse(ppq, startTime);
    }

    /// Forgets all notes. The arpeggio ends the notes that it plays.
    void reset(MidiEngine::Slice& slice, MidiEngine::MidiEngine& engine);

    /// Forgets the outputs that are gone.
    template <class IsGone>
    void forgetOutputs(IsGone&& isGone)
    {
        defaultOutputs.forget(isGone);
    }

private:
    bool takesZone(const MidiEngine::OrvMidiMessage& event) const
    {
        return zone < 0 || event.getZone() < 0 || zone == event.getZone();
    }

    bool takesVelocity(const MidiEngine::OrvMidiMessage& event) const
    {
        const auto velocity = static_cast<std::int8_t>(event.getD2());
        return velocity >= minVelocity && velocity <= maxVelocity;
    }

    void keepNote(MidiEngine::Slice& slice, MidiEngine::MidiEngine& engine, const MidiEngine::OrvMidiMessage& event);
    void keepNoteOn(MidiEngine::Slice& slice, MidiEngine::MidiEngine& engine, const MidiEngine::OrvMidiMessage& event);
    void keepNoteOff(MidiEngine::Slice& slice, MidiEngine::MidiEngine& engine, const MidiEngine::OrvMidiMessage& event);

    // For a layer with mono, toggle or an arpeggio. The note goes to the arpeggio, if there is one.
    void emitKeptNoteOn(MidiEngine::Slice& slice, MidiEngine::MidiEngine& engine,
                        const MidiEngine::OrvMidiMessage& event);
    void emitKeptNoteOff(MidiEngine::Slice& slice, MidiEngine::MidiEngine& engine,
                         const MidiEngine::OrvMidiMessage& event);
    void addToArpeggio(MidiEngine::Slice& slice, MidiEngine::MidiEngine& engine,
                       const MidiEngine::OrvMidiMessage& event);

    // For a layer without mono, toggle and arpeggio.
    void emitNoteOn(MidiEngine::Slice& slice, MidiEngine::MidiEngine& engine, const MidiEngine::OrvMidiMessage& event,
                    MidiEngine::DefaultRoute route);
    void emitNoteOff(MidiEngine::Slice& slice, MidiEngine::MidiEngine& engine, const MidiEngine::OrvMidiMessage& event,
                     MidiEngine::DefaultRoute route);
    // The same for a note with more than one route or default output; separate functions, so that the usual case is
    // short.
    [[gnu::noinline]] void emitUnusualNoteOn(MidiEngine::Slice& slice, MidiEngine::MidiEngine& engine,
                                             const MidiEngine::OrvMidiMessage& event, MidiEngine::DefaultRoute route);
    [[gnu::noinline]] void emitUnusualNoteOff(MidiEngine::Slice& slice, MidiEngine::MidiEngine& engine,
                                              const MidiEngine::OrvMidiMessage& event, MidiEngine::DefaultRoute route);

    // Sends the note to the player, with the layer's channel, transposition and velocity. The event becomes a note-on
    // or note-off, whichever it was.
    void sendNoteOn(MidiEngine::Slice& slice, MidiEngine::MidiEngine& engine, const MidiEngine::OrvMidiMessage& event,
                    int port);
    void sendNoteOff(MidiEngine::Slice& slice, MidiEngine::MidiEngine& engine, const MidiEngine::OrvMidiMessage& event,
                     int port);
    int getOutput(MidiEngine::Slice& slice, MidiEngine::MidiEngine& engine) const;
    /// For a layer with mono, toggle or an arpeggio: the output to which the note-off of that note goes.
    int getKeptOutput(MidiEngine::Slice& slice, MidiEngine::MidiEngine& engine, int note) const;
    MidiEngine::OrvMidiMessage shaped(const MidiEngine::OrvMidiMessage& event, int port) const;

    // Used for every event, therefore next to each other
    bool keepsNotes;  // mono, toggle or an arpeggio: the layer keeps track of held notes
    std::int8_t minVelocity;
    std::int8_t maxVelocity;
    std::int8_t zone;
    std::int8_t output;
    std::int8_t channel;
    bool useNoteStack;
    std::uint8_t shownNumber;                  // from 1; 0 if it is too high
    std::array<std::uint8_t, 256> sounding;    // the note to play, by the note of the event
    std::array<std::uint8_t, 256> velocities;  // the velocity to play, by that of the event

    Layer settings;
    bool mono;
    NoteToggle::Mode toggle;
    int minNote;
    int maxNote;
    SequenceManagement::SequencePlayer sequence;             // of the arpeggio
    std::unique_ptr<ArpeggioManagement::Arpeggio> arpeggio;  // null if the layer has none
    HeldNoteStack noteStack;
    std::bitset<256> toggledNotes;
    MidiEngine::DefaultOutputMemory defaultOutputs;  // by the note of the event
    MidiEngine::RunSet taken;
};
}  // namespace Backend::Layers
