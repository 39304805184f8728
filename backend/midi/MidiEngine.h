#pragma once

#include <atomic>
#include <cstdint>
#include <vector>

#include "backend/midi/MidiEngineMessageManager.h"
#include "backend/midi/MidiPlayer.h"
#include "backend/midi/MidiPort.h"
#include "backend/midi/NoteCounters.h"
#include "backend/midi/NoteOutputs.h"
#include "backend/midi/OrvMidiMessage.h"
#include "backend/midi/Slice.h"
#include "platform/CriticalSection.h"
#include "platform/Export.h"
#include "platform/WindowHandle.h"

namespace Backend::MidiEngine
{
/// The one place through which every played event passes. Events wait in a queue until the host's next time slice,
/// are played at their pulse and reach the host's player; note ons and note offs are counted on the way, so that a
/// reset can end every note.
///
/// A note off always follows its note on: to the output that the note on got, past a MIDI thru switched off in
/// between, unless that output is gone.
class ORV_API MidiEngine
{
public:
    /// A slice of that many pulses or more means that the host's clock jumped, and plays nothing.
    static constexpr std::int32_t MAX_TIME_SLICE = 5000;
    static constexpr int PULSES_PER_QUARTER = 480;
    /// The position of millisecond 0, far above the negative values that mean no time.
    static constexpr std::int32_t FIRST_PULSE = 50000000;

    /// `player` must outlive the engine.
    explicit MidiEngine(MidiPlayer& player);
    ~MidiEngine() { end(); }

    MidiEngine(const MidiEngine&) = delete;
    MidiEngine& operator=(const MidiEngine&) = delete;

    /// Takes the two settings and starts the command thread.
    void initialize(int defaultMidiOutput, bool midiThru);
    /// Ends the command thread and waits for that.
    void end();

    MidiEngineMessageManager& getMessageManager() { return messageManager; }
    const MidiEngineMessageManager& getMessageManager() const { return messageManager; }
    CriticalSection& getCriticalSection() RETURN_CAPABILITY(criticalSection) { return criticalSection; }

    /// See `OrvIF::playTimeSlice`. The player's thread.
    void playTimeSlice(std::int32_t startPpq, std::int32_t endPpq) EXCLUDES(criticalSection);

    /// The pulse at which a clock stands that has run that long at `tempo` beats per minute.
    static std::int32_t milliseconds2Ppq(double milliseconds, int tempo);

    // Commands: each one short stay under the lock, on any thread outside a slice.

    /// Queues an event; untimed it plays at the first pulse of the slice behind the one that finds it.
    void appendTimedEvent(const OrvMidiMessage& event) EXCLUDES(criticalSection);
    void setMidiInputPorts(MidiInputPorts ports) EXCLUDES(criticalSection);
    /// An output that is missing from the list or not enabled loses its counters and what is remembered of it.
    void setMidiOutputPorts(MidiOutputPorts ports) EXCLUDES(criticalSection);
    void enableMidiInput(int port, bool enabled) EXCLUDES(criticalSection);
    void enableMidiOutput(int port, bool enabled) EXCLUDES(criticalSection);
    void setDefaultMidiOutput(int port) EXCLUDES(criticalSection);
    void setMidiThru(bool on) EXCLUDES(criticalSection);
    void setTempo(int bpm) EXCLUDES(criticalSection);
    void setTempoSource(int source) EXCLUDES(criticalSection);
    void setGuiWindowHandle(WindowHandle window) EXCLUDES(criticalSection);

    /// See `MidiEngineMessageManager`.
    void sendReset() EXCLUDES(criticalSection);
    void sendHardReset() EXCLUDES(criticalSection);
    bool isResetWaiting() const { return resetsWaiting > 0; }

    /// For a host whose tempo is tapped by hand.
    void pulseSequencer() { midiPlayer.pulseSequencer(); }

    /// True on the thread that plays the slices; before the first slice on any thread.
    bool isMidiPlayerThread() const { return !timeSlicesRunning || midiPlayer.getThreadId() == currentThreadId(); }

    // Inside a slice

    /// An event's way in: validity, then the layers or, when it names an output or a channel, straight out.
    void playMidi(Slice& slice, const OrvMidiMessage& event);
    /// The last stage: count, send, show. With `stackNotes` a note off is held back while the same note sounds on.
    void playMidiInternal(Slice& slice, const OrvMidiMessage& event, bool stackNotes);
    /// Schedules an event from inside a slice.
    void postPlayMidi(Slice& slice, const OrvMidiMessage& event);
    /// False for an index outside the list of outputs too.
    bool isOutputEnabled(Slice& slice, int output) const;
    int getDefaultMidiOutput(Slice& slice) const;

private:
    void drain(Slice& slice, std::int32_t endPpq) REQUIRES(criticalSection);
    void walk(Slice& slice, std::int32_t startPpq, std::int32_t endPpq) REQUIRES(criticalSection);
    void processPpq(Slice& slice, std::int32_t ppq, std::int32_t minPpq) REQUIRES(criticalSection);
    void requeue() REQUIRES(criticalSection);
    static void finish(Slice& slice);

    void playDirect(Slice& slice, OrvMidiMessage event) REQUIRES(criticalSection);
    int getDefaultOutputFor(const OrvMidiMessage& event) REQUIRES(criticalSection);
    bool reachesPlayer(const OrvMidiMessage& event, const NoteCounters::Counter* counter) const
        REQUIRES(criticalSection);
    void drop(const OrvMidiMessage& event, const char* why) REQUIRES(criticalSection);

    void runReset(const OrvMidiMessage& order) EXCLUDES(criticalSection);
    void queueReset(const OrvMidiMessage& order, ResetRequest& request) REQUIRES(criticalSection);
    void serveReset(Slice& slice, const OrvMidiMessage& order) REQUIRES(criticalSection);
    void carryOut(Slice& slice, const OrvMidiMessage& order) REQUIRES(criticalSection);
    void reset(Slice& slice) REQUIRES(criticalSection);
    void hardReset(Slice& slice) REQUIRES(criticalSection);

    // Fixed after construction
    MidiPlayer& midiPlayer;

    // Crossed without the lock
    std::atomic<bool> timeSlicesRunning{false};
    std::atomic<int> resetsWaiting{0};

    CriticalSection criticalSection;

    // Guarded by the engine lock
    MidiInputPorts midiInputPorts GUARDED_BY(criticalSection);
    MidiOutputPorts midiOutputPorts GUARDED_BY(criticalSection);
    int defaultMidiOutput GUARDED_BY(criticalSection) = -1;
    bool midiThru GUARDED_BY(criticalSection) = true;
    WindowHandle guiWindow GUARDED_BY(criticalSection);
    std::vector<OrvMidiMessage> timedEvents GUARDED_BY(criticalSection);  // in order of arrival
    std::vector<OrvMidiMessage> pending GUARDED_BY(criticalSection);      // of this slice
    std::vector<Slice::Drop> drops GUARDED_BY(criticalSection);
    std::vector<ResetRequest*> resetRequests GUARDED_BY(criticalSection);  // one per queued reset, oldest first
    int resetsUnderWay GUARDED_BY(criticalSection) = 0;
    int keptTempoSource GUARDED_BY(criticalSection) = -1;
    NoteOutputs directOutputs GUARDED_BY(criticalSection);
    NoteCounters noteCounters GUARDED_BY(criticalSection);

    // Last, so that its thread ends before what it works on goes
    MidiEngineMessageManager messageManager;
};
}  // namespace Backend::MidiEngine
