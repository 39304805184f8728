#pragma once

#include <array>
#include <bitset>
#include <cstdint>
#include <memory>

#include "backend/engine/Arpeggio.h"
#include "backend/engine/DefaultOutputMemory.h"
#include "backend/engine/HeldNoteStack.h"
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
/// A layer as the engine plays it: tables made of its settings, and what it remembers of the notes it holds. The
/// settings never change: an edited layer is a new one, which is swapped in after a reset.
class EngineLayer
{
public:
    /// `number` tells the layers of a list apart, from 1.
    EngineLayer(const Layer& settings, std::size_t number);

    /// Whether a note (a data byte, compared as a signed one) lies in its range.
    bool hasInRange(std::uint8_t note) const;

    /// Offers it a note on or a note off within its range of notes. It may play nothing, or note ons and note offs of
    /// its own. `route` is the event's.
    void playNote(MidiEngine::Slice& slice, MidiEngine::MidiEngine& engine, const MidiEngine::OrvMidiMessage& event,
                  MidiEngine::DefaultRoute route)
    {
        if (!takesVelocity(event) || !takesZone(event)) return;
        if (keepsNotes)
            keepNote(slice, engine, event);
        else if (event.isNoteOn())
            emitNoteOn(slice, engine, event, route);
        else
            emitNoteOff(slice, engine, event, route);
    }

    /// Offers it any other event. Each (output, channel) gets it once, however many layers lead there.
    void playOther(MidiEngine::Slice& slice, MidiEngine::MidiEngine& engine, const MidiEngine::OrvMidiMessage& event);

    bool hasArpeggio() const { return arpeggio != nullptr; }
    /// -1 without a running arpeggio.
    std::int32_t getArpeggioStart() const { return arpeggio != nullptr ? arpeggio->getLastStart() : -1; }

    // Of a layer that has an arpeggio: plays a pulse; the next pulse in which it may do anything.
    void playArpeggio(MidiEngine::Slice& slice, MidiEngine::MidiEngine& engine, std::int32_t ppq);
    std::int32_t nextArpeggioTurn(std::int32_t ppq, std::int32_t startTime) const
    {
        return arpeggio->nextTurn(ppq, startTime);
    }

    /// Forgets every note it holds; its arpeggio ends those that sound.
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

    // What a layer that keeps notes emits: to its arpeggio, if it has one.
    void giveNoteOn(MidiEngine::Slice& slice, MidiEngine::MidiEngine& engine, const MidiEngine::OrvMidiMessage& event);
    void giveNoteOff(MidiEngine::Slice& slice, MidiEngine::MidiEngine& engine, const MidiEngine::OrvMidiMessage& event);
    void addToArpeggio(MidiEngine::Slice& slice, MidiEngine::MidiEngine& engine,
                       const MidiEngine::OrvMidiMessage& event);

    // What a layer without mono, toggle and arpeggio emits.
    void emitNoteOn(MidiEngine::Slice& slice, MidiEngine::MidiEngine& engine, const MidiEngine::OrvMidiMessage& event,
                    MidiEngine::DefaultRoute route);
    void emitNoteOff(MidiEngine::Slice& slice, MidiEngine::MidiEngine& engine, const MidiEngine::OrvMidiMessage& event,
                     MidiEngine::DefaultRoute route);
    // The same where a note has more than one route or default output. Apart, so that the usual case stays short.
    [[gnu::noinline]] void emitUnusualNoteOn(MidiEngine::Slice& slice, MidiEngine::MidiEngine& engine,
                                             const MidiEngine::OrvMidiMessage& event, MidiEngine::DefaultRoute route);
    [[gnu::noinline]] void emitUnusualNoteOff(MidiEngine::Slice& slice, MidiEngine::MidiEngine& engine,
                                              const MidiEngine::OrvMidiMessage& event, MidiEngine::DefaultRoute route);

    // The last stage: channel, transposition, velocity, and on to the player. Whatever the event's status, it goes out
    // as a note on or a note off.
    void sendNoteOn(MidiEngine::Slice& slice, MidiEngine::MidiEngine& engine, const MidiEngine::OrvMidiMessage& event,
                    int port);
    void sendNoteOff(MidiEngine::Slice& slice, MidiEngine::MidiEngine& engine, const MidiEngine::OrvMidiMessage& event,
                     int port);
    int getOutput(MidiEngine::Slice& slice, MidiEngine::MidiEngine& engine) const;
    /// Of a layer that keeps notes: the output that the note off of this note takes.
    int getKeptOutput(MidiEngine::Slice& slice, MidiEngine::MidiEngine& engine, int note) const;
    MidiEngine::OrvMidiMessage shaped(const MidiEngine::OrvMidiMessage& event, int port) const;

    // What every event reads, together
    bool keepsNotes;  // mono, toggle or an arpeggio: it must know what is held
    std::int8_t minVelocity;
    std::int8_t maxVelocity;
    std::int8_t zone;
    std::int8_t output;
    std::int8_t channel;
    bool useNoteStack;
    std::array<std::uint8_t, 256> sounding;    // what a note becomes, by its byte
    std::array<std::uint8_t, 256> velocities;  // what a velocity becomes, by its byte

    bool mono;
    NoteToggle::Mode toggle;
    int minNote;
    int maxNote;
    SequenceManagement::SequencePlayer sequence;             // of the arpeggio
    std::unique_ptr<ArpeggioManagement::Arpeggio> arpeggio;  // null: notes are played straight through
    HeldNoteStack noteStack;
    std::bitset<256> toggledNotes;
    MidiEngine::DefaultOutputMemory defaultOutputs;  // by the note as it entered
};
}  // namespace Backend::Layers
