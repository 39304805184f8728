#pragma once

#include "backend/values/OrvMidiMessage.h"
#include "platform/Export.h"
#include "platform/Thread.h"

namespace Backend::MidiEngine
{
/// The host's side of the engine: sends events to MIDI devices, and owns the clock. It must outlive the backend. Every
/// operation except `getThreadId` may be called with the engine lock held, so none may wait for the engine; those that
/// open devices or change the clock only store a request for a thread of the host.
class ORV_API MidiPlayer
{
public:
    virtual ~MidiPlayer() = default;

    /// Plays an event on port `getOutput()`; its channel is set. In a time slice or `OrvIF::playMidiInputEvent`, on its
    /// thread. The port is -1 after a hard reset without a default output; then there is nothing to play.
    virtual void playMidi(const OrvMidiMessage& event) = 0;

    /// Opens or closes an input port, by its index.
    virtual void enableMidiInput(int port, bool enabled) = 0;

    /// Opens or closes an output port, by its index. The host then sends the updated list of outputs.
    virtual void enableMidiOutput(int port, bool enabled) = 0;

    /// The thread on which the host calls `playTimeSlice`. Any thread.
    virtual ThreadId getThreadId() = 0;

    /// A tap of a tempo that is tapped by hand.
    virtual void pulseSequencer() = 0;

    /// Beats per minute, 20 to 250.
    virtual void setTempo(int bpm) = 0;

    /// -1 for the internal clock, otherwise the input port whose MIDI clock sets the tempo.
    virtual void setTempoSource(char source) = 0;
    virtual char getTempoSource() = 0;

    /// The time of played events for the retrospective record, in milliseconds of a clock that wraps round. Any thread;
    /// called at most once in a time slice, and must not wait. A host with a time of its own overrides it, the default
    /// is the system's.
    virtual std::uint32_t getMilliseconds();

    /// The engine rests (`OrvIF::tryRest`) and now has something to play: the next slice is due at once. Any thread.
    virtual void wakeClock() {}
};
}  // namespace Backend::MidiEngine
