#pragma once

#include "backend/values/OrvMidiMessage.h"
#include "platform/Export.h"
#include "platform/Thread.h"

namespace Backend::MidiEngine
{
/// What the host supplies: the way out to real MIDI devices, and the owner of the clock. The host keeps it alive as
/// long as the backend. Every operation but `getThreadId` may be called with the engine lock held, so none of them may
/// wait for the engine, and those that open devices or change the clock only leave a request for a thread of the host.
class ORV_API MidiPlayer
{
public:
    virtual ~MidiPlayer() = default;

    /// Plays one event on port `getOutput()`, its channel resolved. Inside a time slice. After a hard reset without a
    /// default output the port is -1: nothing to play it on.
    virtual void playMidi(const OrvMidiMessage& event) = 0;

    /// Opens or closes an input port, by its index.
    virtual void enableMidiInput(int port, bool enabled) = 0;

    /// Opens or closes an output port, by its index. The host answers with the refreshed list of outputs.
    virtual void enableMidiOutput(int port, bool enabled) = 0;

    /// The thread on which the host calls `playTimeSlice`. Any thread.
    virtual ThreadId getThreadId() = 0;

    /// One pulse of a tempo tapped by hand.
    virtual void pulseSequencer() = 0;

    /// Beats per minute, 20 to 250.
    virtual void setTempo(int bpm) = 0;

    /// -1 is the internal clock, otherwise the input port whose timing ticks set the tempo.
    virtual void setTempoSource(char source) = 0;
    virtual char getTempoSource() = 0;

    /// The time that played events have in the retrospective record: milliseconds of a clock that wraps round. Any
    /// thread; asked at most once in a time slice, which it must not keep waiting. Hosts whose time is not the system's
    /// have their own.
    virtual std::uint32_t getMilliseconds();
};
}  // namespace Backend::MidiEngine
