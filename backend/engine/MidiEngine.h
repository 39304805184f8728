#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <span>
#include <vector>

#include "api/MidiPlayer.h"
#include "api/OrvIF.h"
#include "backend/engine/ControlUpdates.h"
#include "backend/engine/DefaultOutputMemory.h"
#include "backend/engine/EngineLayerList.h"
#include "backend/engine/EngineOscList.h"
#include "backend/engine/EngineZones.h"
#include "backend/engine/EventLog.h"
#include "backend/engine/EventRecorder.h"
#include "backend/engine/NoteCounters.h"
#include "backend/engine/PressMemory.h"
#include "backend/engine/PulseSpan.h"
#include "backend/engine/RandomSource.h"
#include "backend/engine/SentPairs.h"
#include "backend/engine/Slice.h"
#include "backend/messages/MidiEngineMessageManager.h"
#include "backend/model/MidiPort.h"
#include "backend/values/OrvMidiMessage.h"
#include "platform/CriticalSection.h"
#include "platform/Export.h"
#include "platform/WindowHandle.h"

namespace Backend::MidiEngine
{
/// The one place through which every played event passes. Events wait in a queue until the host's next time slice,
/// are played at their pulse and reach the host's player; note ons and note offs are counted on the way, so that a
/// reset can end every note.
///
/// A note off always follows its note on: to the output that the note on got, also if MIDI thru was switched off in
/// between, unless that output is missing or disabled. See docs/sounding-notes.md.
class ORV_API MidiEngine final : public MidiEngineCommands
{
public:
    /// A slice of that many pulses or more means that the host's clock jumped, and plays nothing.
    static constexpr std::int32_t MAX_TIME_SLICE = OrvIF::MAX_TIME_SLICE;
    static constexpr int PULSES_PER_QUARTER = 480;
    /// The position of millisecond 0, far above the negative values that mean no time.
    static constexpr std::int32_t FIRST_PULSE = OrvIF::FIRST_PULSE;

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

    /// The pulse at which a clock stands that has run that long at `tempo` beats per minute, from 0 to the highest.
    static std::int32_t milliseconds2Ppq(double milliseconds, int tempo);

    // Commands: each one short stay under the lock, on any thread outside a slice.

    /// Queues an event; untimed it plays at the first pulse of the slice after the one that takes it from the queue.
    void appendTimedEvent(const OrvMidiMessage& event) EXCLUDES(criticalSection);
    void setMidiInputPorts(MidiInputPorts ports) EXCLUDES(criticalSection);
    /// An output that is missing from the list or not enabled loses its counters and what is remembered of it.
    void setMidiOutputPorts(MidiOutputPorts ports) EXCLUDES(criticalSection);
    void enableMidiInput(int port, bool enabled) EXCLUDES(criticalSection);
    void enableMidiOutput(int port, bool enabled) EXCLUDES(criticalSection);
    /// 0 to 127; any other number is none.
    void setDefaultMidiOutput(int port) EXCLUDES(criticalSection);
    void setMidiThru(bool on) EXCLUDES(criticalSection);
    void setTempo(int bpm) EXCLUDES(criticalSection);
    void setTempoSource(int source) EXCLUDES(criticalSection);
    void setGuiWindowHandle(WindowHandle window) EXCLUDES(criticalSection);
    /// What is played is recorded there; null for no record. It must outlive the slices.
    void setEventRecorder(EventRecorder* newRecorder) EXCLUDES(criticalSection);
    /// What is played is logged there; null for no log. It must outlive the slices.
    void setEventLog(EventLog* newLog) EXCLUDES(criticalSection);
    /// Receives the events that controls may follow; it must outlive the slices. Null for none.
    void setControlUpdates(Controls::ControlUpdates* updates) EXCLUDES(criticalSection);
    /// Replaces the zones. Open presses keep the note they sound.
    void setZoneMap(std::vector<Zones::Zone> zones) EXCLUDES(criticalSection);
    /// Replaces the transposition of a zone, if it is there.
    void setZone(Zones::Zone zone) EXCLUDES(criticalSection);
    /// Replaces the layers directly after a reset, so that no event falls between the two. Waits like `sendReset`.
    void setLayerList(std::vector<Layers::Layer> layers) EXCLUDES(criticalSection);

    /// The same for the oscillators.
    void setOscList(std::vector<Oscillators::Oscillator> oscillators) EXCLUDES(criticalSection);
    /// Starts or stops an oscillator where it stands in its wave. Its stop value, if it has one, is played before the
    /// wave's first value and after its last.
    void setOscPlaying(Oscillators::OscId id, bool playing) EXCLUDES(criticalSection);
    void setOscSpeed(Oscillators::OscId id, int speed) EXCLUDES(criticalSection);
    /// What is drawn from now on depends on the seed alone.
    void setRandomSeed(std::uint32_t seed) EXCLUDES(criticalSection);

    /// See `MidiEngineMessageManager`.
    void handleMessage(Message& message) override;
    void sendReset() override EXCLUDES(criticalSection);
    void sendHardReset() override EXCLUDES(criticalSection);
    bool isResetWaiting() const { return resetsWaiting > 0; }

    /// For a host whose tempo is tapped by hand.
    void pulseSequencer() { midiPlayer.pulseSequencer(); }

    /// True on the thread that plays the slices; before the first slice on any thread.
    bool isMidiPlayerThread() const { return !timeSlicesRunning || midiPlayer.getThreadId() == currentThreadId(); }

    // Inside a slice

    /// The entry of an event: validity, then the layers or, when it names an output or a channel, straight out.
    /// The event is used up: it may come back with another note, velocity, output or channel.
    void playMidi(Slice& slice, OrvMidiMessage& event);
    /// The last stage: count, send, record, show. With `stackNotes` a note off is held back while the same note sounds
    /// on.
    void playMidiInternal(Slice& slice, const OrvMidiMessage& event, bool stackNotes);

    /// The same for what is known to be a note on, or a note off.
    void playNoteOn(Slice& slice, const OrvMidiMessage& event)
    {
        Slice::proves(criticalSection);
        NoteCounters::Counter* counter = noteCounters.find(event.getOutput(), event.getChannel(), event.getD1());
        if (counter != nullptr) {
            noteCounters.use(event.getOutput());
            counter->press();
        }
        if (midiThru || event.getInput() < 0) {
            if (counter != nullptr) counter->setPlayerHolds(true);
            midiPlayer.playMidi(event);
        }
        if (isObserved) notifyObservers(slice, event);
    }

    // Without thru, what came in on a MIDI input does not go out, but the note off of a note that the player holds
    // does.
    void playNoteOff(Slice& slice, const OrvMidiMessage& event, bool stackNotes)
    {
        Slice::proves(criticalSection);
        NoteCounters::Counter* counter = noteCounters.find(event.getOutput(), event.getChannel(), event.getD1());
        const bool isLast = counter == nullptr || counter->release();
        const bool passes = midiThru || event.getInput() < 0 || (counter != nullptr && counter->doesPlayerHold());
        if ((isLast || !stackNotes) && passes) {
            if (counter != nullptr) counter->setPlayerHolds(false);
            midiPlayer.playMidi(event);
        }
        if (isObserved) notifyObservers(slice, event);
    }

    /// The pulse in which the grid of all arpeggios begins, -1 while none runs.
    std::int32_t getStartTime(Slice&) const
    {
        Slice::proves(criticalSection);
        return startTime;
    }
    /// Only while none runs: the first one begins the grid.
    void setStartTime(Slice&, std::int32_t ppq)
    {
        Slice::proves(criticalSection);
        if (startTime < 0) startTime = ppq;
    }
    /// Ends the grid if no arpeggio runs any more.
    void updateStartTime(Slice& slice);
    /// To be called when an arpeggio has got a note.
    void wakeArpeggios(Slice&)
    {
        Slice::proves(criticalSection);
        arpeggiosRest = {};
    }

    /// Posts an event that goes out to the controls, as it was before it got its output and channel. They process it
    /// on their own thread.
    void postUpdateControl(Slice& slice, const OrvMidiMessage& event);

    /// Schedules an event from inside a slice.
    void postPlayMidi(Slice& slice, const OrvMidiMessage& event);
    /// False for an index outside the list of outputs too.
    bool isOutputEnabled(Slice&, int output) const
    {
        Slice::proves(criticalSection);
        return enabledOutputs[static_cast<std::uint8_t>(output)];
    }
    /// The open presses of all keys.
    PressMemory& getPresses(Slice&)
    {
        Slice::proves(criticalSection);
        return presses;
    }
    int getDefaultMidiOutput(Slice&) const
    {
        Slice::proves(criticalSection);
        return defaultMidiOutput;
    }
    /// True at the first call for that output and channel during one event.
    bool isFirstTo(Slice&, int output, int channel)
    {
        Slice::proves(criticalSection);
        return sentPairs.add(output, channel);
    }
    /// 0 to 32767.
    std::int32_t drawRandom(Slice&)
    {
        Slice::proves(criticalSection);
        return random.draw();
    }
    /// Shows the running value of an oscillator.
    void showOscValue(Slice& slice, Oscillators::OscId id, std::int32_t value);
    /// Writes to the debug stream, once the slice is over, why an event was dropped. Not inlined, so that its callers stay
    /// short.
    [[gnu::noinline]] void drop(Slice& slice, const OrvMidiMessage& event, const char* why);

private:
    void drain(Slice& slice, std::int32_t endPpq) REQUIRES(criticalSection);
    void walk(Slice& slice, std::int32_t startPpq, std::int32_t endPpq) REQUIRES(criticalSection);
    void processSpan(Slice& slice, std::int64_t from, std::int64_t until, std::int32_t minPpq)
        REQUIRES(criticalSection);
    void processPpq(Slice& slice, std::int32_t ppq, std::int32_t minPpq) REQUIRES(criticalSection);
    void playDue(Slice& slice, std::int32_t ppq, std::int32_t minPpq) REQUIRES(criticalSection);
    void playArpeggios(Slice& slice, std::int32_t ppq) REQUIRES(criticalSection);
    void requeue() REQUIRES(criticalSection);
    static void finish(Slice& slice);
    [[gnu::noinline]] static void report(std::span<const Slice::Drop> drops);

    void playDirect(Slice& slice, OrvMidiMessage& event) REQUIRES(criticalSection);
    void playToDefaultOutput(Slice& slice, OrvMidiMessage& note, DefaultRoute route) REQUIRES(criticalSection);
    void playOtherDirect(Slice& slice, OrvMidiMessage& event) REQUIRES(criticalSection);
    void sendDirect(Slice& slice, const OrvMidiMessage& note) REQUIRES(criticalSection);
    void notifyObservers(Slice& slice, const OrvMidiMessage& event) REQUIRES(criticalSection);
    void record(Slice& slice, const OrvMidiMessage& event) REQUIRES(criticalSection);
    void show(Slice& slice, const OrvMidiMessage& event) REQUIRES(criticalSection);
    void postToWindow(Slice& slice, Message message) REQUIRES(criticalSection);
    void playRemembered(Slice& slice, OrvMidiMessage& note) REQUIRES(criticalSection);
    void playOn(Slice& slice, OrvMidiMessage& event) REQUIRES(criticalSection);
    void playThroughLayers(Slice& slice, const OrvMidiMessage& event) REQUIRES(criticalSection);

    void runReset(const OrvMidiMessage& order, ResetRequest& request) EXCLUDES(criticalSection);
    void queueReset(const OrvMidiMessage& order, ResetRequest& request) REQUIRES(criticalSection);
    void serveReset(Slice& slice, const OrvMidiMessage& order) REQUIRES(criticalSection);
    void executeReset(Slice& slice, const OrvMidiMessage& order, ResetRequest& request) REQUIRES(criticalSection);
    void updateObserved() REQUIRES(criticalSection);
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
    std::array<bool, 256> enabledOutputs GUARDED_BY(criticalSection){};  // by the output's byte; none is enabled
    int defaultMidiOutput GUARDED_BY(criticalSection) = -1;
    bool midiThru GUARDED_BY(criticalSection) = true;
    WindowHandle guiWindow GUARDED_BY(criticalSection);
    EventRecorder* recorder GUARDED_BY(criticalSection) = nullptr;
    EventLog* eventLog GUARDED_BY(criticalSection) = nullptr;
    bool isObserved GUARDED_BY(criticalSection) = false;  // what is played goes to the window, the log or the record
    Controls::ControlUpdates* controlUpdates GUARDED_BY(criticalSection) = nullptr;
    std::vector<OrvMidiMessage> timedEvents GUARDED_BY(criticalSection);  // in order of arrival
    std::vector<OrvMidiMessage> pending GUARDED_BY(criticalSection);      // of this slice
    std::int32_t earliest GUARDED_BY(criticalSection) = 0;                // pulse among them
    std::vector<Slice::Drop> drops GUARDED_BY(criticalSection);
    std::vector<ResetRequest*> resetRequests GUARDED_BY(criticalSection);  // one per queued reset, oldest first
    int resetsUnderWay GUARDED_BY(criticalSection) = 0;
    int keptTempoSource GUARDED_BY(criticalSection) = -1;
    Layers::EngineLayerList layers GUARDED_BY(criticalSection);
    Oscillators::EngineOscList oscillators GUARDED_BY(criticalSection);
    RandomSource random GUARDED_BY(criticalSection);
    std::int32_t startTime GUARDED_BY(criticalSection) = -1;      // of the arpeggios' grid
    Layers::PulseSpan arpeggiosRest GUARDED_BY(criticalSection);  // none of them does anything in it
    Zones::EngineZones zones GUARDED_BY(criticalSection);
    PressMemory presses GUARDED_BY(criticalSection);
    SentPairs sentPairs GUARDED_BY(criticalSection);
    DefaultOutputMemory directOutputs GUARDED_BY(criticalSection);
    NoteCounters noteCounters GUARDED_BY(criticalSection);

    // Last, so that its thread ends before the members that it uses are destroyed
    MidiEngineMessageManager messageManager;
};
}  // namespace Backend::MidiEngine
