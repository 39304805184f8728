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
#include "backend/engine/EngineOscList.h"
#include "backend/engine/EngineZones.h"
#include "backend/engine/EventLog.h"
#include "backend/engine/EventRecorder.h"
#include "backend/engine/HeldNotes.h"
#include "backend/engine/LayersInPlay.h"
#include "backend/engine/LiveInputs.h"
#include "backend/engine/LongestHold.h"
#include "backend/engine/NoteCounters.h"
#include "backend/engine/NoteWatch.h"
#include "backend/engine/PedalMemory.h"
#include "backend/engine/PressMemory.h"
#include "backend/engine/PulseSpan.h"
#include "backend/engine/RandomSource.h"
#include "backend/engine/SentPairs.h"
#include "backend/engine/Slice.h"
#include "backend/engine/UsualPresses.h"
#include "backend/messages/MidiEngineMessageManager.h"
#include "backend/model/MidiPort.h"
#include "backend/values/OrvMidiMessage.h"
#include "platform/CriticalSection.h"
#include "platform/Export.h"
#include "platform/WindowHandle.h"

namespace Backend::MidiEngine
{
/// The engine: every played event passes through it. Events wait in a queue until the host's next time slice, are
/// played at their pulse through zones and layers, and go to the host's player. Note-ons and note-offs are counted, so
/// that a reset can end every note.
///
/// A note-off always goes to the output of its note-on, also if MIDI thru was switched off in between, unless that
/// output is missing or disabled. See docs/sounding-notes.md.
class ORV_API MidiEngine final : public MidiEngineCommands
{
public:
    /// A slice of that many pulses or more plays nothing, because the host's clock has jumped.
    static constexpr std::int32_t MAX_TIME_SLICE = OrvIF::MAX_TIME_SLICE;
    static constexpr int PULSES_PER_QUARTER = 480;
    /// The pulse at millisecond 0. It is high because negative pulses mean that an event has no time.
    static constexpr std::int32_t FIRST_PULSE = OrvIF::FIRST_PULSE;

    /// `player` must outlive the engine.
    explicit MidiEngine(MidiPlayer& player);
    ~MidiEngine() { end(); }

    MidiEngine(const MidiEngine&) = delete;
    MidiEngine& operator=(const MidiEngine&) = delete;

    /// Sets the two settings and starts the command thread.
    void initialize(int defaultMidiOutput, bool midiThru);
    /// Stops the command thread and waits for its end.
    void end();

    MidiEngineMessageManager& getMessageManager() { return messageManager; }
    const MidiEngineMessageManager& getMessageManager() const { return messageManager; }
    CriticalSection& getCriticalSection() RETURN_CAPABILITY(criticalSection) { return criticalSection; }

    /// See `OrvIF::playTimeSlice`. The player's thread.
    void playTimeSlice(std::int32_t startPpq, std::int32_t endPpq) EXCLUDES(criticalSection);
    /// See `OrvIF::tryRest`. The player's thread.
    bool tryRest() EXCLUDES(criticalSection);

    /// See `OrvIF::playMidiInputEvent` and `OrvIF::deferMidiInputEvent`.
    bool playMidiInputEvent(const OrvMidiMessage& event) EXCLUDES(criticalSection);
    void deferMidiInputEvent(int input) { deferred.add(input); }
    bool isDeferring(int input) const { return deferred.hasAny(input); }
    /// Whether `playMidiInputEvent` refuses every event, because the backend learns one. Any thread, without the lock:
    /// an event that is being played at the moment arrived before.
    void refuseMidiInputEvents(bool on) { refusesInputs.store(on, std::memory_order_relaxed); }

    /// The pulse of a clock that has run that long at `tempo` beats per minute, limited to 0 to the highest pulse.
    static std::int32_t milliseconds2Ppq(double milliseconds, int tempo);

    // Commands: any thread outside a slice. Each holds the lock for a short time only.

    /// Queues an event. One without a pulse is played at the first pulse of the slice after the one that takes it from
    /// the queue.
    void appendTimedEvent(const OrvMidiMessage& event) EXCLUDES(criticalSection);
    /// The events of all other inputs are deferred.
    void setMidiInputPorts(MidiInputPorts ports) EXCLUDES(criticalSection);
    /// The program changes of these inputs are deferred, with their bank selects.
    void setProgramChangeInput(const ProgramChangeInput& input) EXCLUDES(criticalSection);
    /// What events of inputs are translated by; not null.
    void setMidiTranslations(InputTranslations::Shared translations) EXCLUDES(criticalSection);
    /// What an event of an input that takes the way through the backend is translated by, in this order: `now`, which
    /// is the backend's or, while held notes are kept, what a note or pedal that is released met when it was pressed.
    /// To be called once for each event, as `MidiEventConfigurationMap::asReceived` gives it.
    std::vector<InputTranslations::Shared> takeMidiTranslations(const OrvMidiMessage& received,
                                                                const InputTranslations::Shared& now)
        EXCLUDES(criticalSection);
    /// An event of an input that takes the way through the backend, for the notes that the input holds.
    void followMidiInput(const OrvMidiMessage& event) EXCLUDES(criticalSection);
    /// Takes the notes that an input holds. Its events are deferred until one more `settleMidiInput`.
    HeldNotes takeHeldNotes(int input) EXCLUDES(criticalSection);
    /// Queues a marker: what a deferred event of that input made is played when it comes due.
    void settleMidiInput(int input) EXCLUDES(criticalSection);
    /// Counters and stored presses of an output that is missing from the list or disabled are cleared.
    void setMidiOutputPorts(MidiOutputPorts ports) EXCLUDES(criticalSection);
    void enableMidiInput(int port, bool enabled) EXCLUDES(criticalSection);
    void enableMidiOutput(int port, bool enabled) EXCLUDES(criticalSection);
    /// 0 to 127; any other number means none.
    void setDefaultMidiOutput(int port) EXCLUDES(criticalSection);
    void setMidiThru(bool on) EXCLUDES(criticalSection);
    void setTempo(int bpm) EXCLUDES(criticalSection);
    void setTempoSource(int source) EXCLUDES(criticalSection);
    void setGuiWindowHandle(WindowHandle window) EXCLUDES(criticalSection);
    /// Receives what is played, for the retrospective record; null for none. It must outlive the slices.
    void setEventRecorder(EventRecorder* newRecorder) EXCLUDES(criticalSection);
    /// Receives what is played, for the display; null for none. It must outlive the slices.
    void setEventLog(EventLog* newLog) EXCLUDES(criticalSection);
    /// Receives the events of inputs that are played at once, for the display; null for none. It must outlive the
    /// slices.
    void setInputLog(EventLog* newLog) EXCLUDES(criticalSection);
    /// Receives the events that controls may follow; null for none. It must outlive the slices.
    void setControlUpdates(Controls::ControlUpdates* updates) EXCLUDES(criticalSection);
    /// Whether the notes at zones and layers are counted from now on, beginning with none. One thread.
    void watchNotes(bool on) EXCLUDES(criticalSection);
    /// See `NoteWatch::take`. One thread, without the lock.
    bool takeNoteActivity(NoteActivity& activity) { return noteWatch.take(activity); }
    /// Replaces the zones. Open presses keep their sounding note.
    void setZoneMap(std::vector<Zones::Zone> zones) EXCLUDES(criticalSection);
    /// Replaces the transposition of a zone; ignored if there is no such zone.
    void setZone(Zones::Zone zone) EXCLUDES(criticalSection);
    /// Replaces the layers directly after a reset, so that no event is played in between; while notes are kept, without
    /// a reset. Waits like `sendReset`.
    void setLayerList(std::vector<Layers::Layer> layers) EXCLUDES(criticalSection);

    /// The same for the oscillators.
    void setOscList(std::vector<Oscillators::Oscillator> oscillators) EXCLUDES(criticalSection);
    /// Whether lists are replaced without a reset from now on, so that held notes ring on. A change resets, and waits
    /// like `sendReset`. See docs/decisions/0025.
    void setKeepNotes(bool on) EXCLUDES(criticalSection);
    /// Frees the older layers that have nothing left to play.
    void freeSilentLayers() EXCLUDES(criticalSection);
    /// See `OrvIF::sendSequenceSteps`.
    void sendSequenceSteps() EXCLUDES(criticalSection);

    /// Starts or stops an oscillator; its phase is kept. Its stop value, if it has one, is played before the first
    /// value of the wave and after the last.
    void setOscPlaying(Oscillators::OscId id, bool playing) EXCLUDES(criticalSection);
    void setOscSpeed(Oscillators::OscId id, int speed) EXCLUDES(criticalSection);
    /// Seeds the random waves: their values from now on depend on the seed alone.
    void setRandomSeed(std::uint32_t seed) EXCLUDES(criticalSection);

    /// See `MidiEngineMessageManager`.
    void handleMessage(Message& message) override;
    void sendReset() override EXCLUDES(criticalSection);
    void sendHardReset() override EXCLUDES(criticalSection);
    bool isResetWaiting() const { return resetsWaiting > 0; }
    /// See `OrvIF::takeLongestHold`.
    std::int64_t takeLongestHold() { return longestHold.take(); }

    /// Passes a tap of the tempo to the host.
    void pulseSequencer() { midiPlayer.pulseSequencer(); }

    /// True on the thread that plays the slices; before the first slice on any thread.
    bool isMidiPlayerThread() const { return !timeSlicesRunning || midiPlayer.getThreadId() == currentThreadId(); }

    // Inside a slice

    /// The first stage for every event: checks it and passes it to the layers or, if it names an output or a channel,
    /// directly to that output. `event` may be changed.
    void playMidi(Slice& slice, OrvMidiMessage& event);
    /// The last stage: counts, plays, records and shows the event. With `stackNotes` a note-off is not played while the
    /// same note sounds for another press.
    void playMidiInternal(Slice& slice, const OrvMidiMessage& event, bool stackNotes);

    /// The same for an event that is a note-on, or a note-off.
    void playNoteOn(Slice& slice, const OrvMidiMessage& event)
    {
        Slice::proves(criticalSection);
        NoteCounters::Counter* counter = noteCounters.find(event.getOutput(), event.getChannel(), event.getD1());
        if (counter != nullptr) {
            noteCounters.use(event.getOutput());
            counter->press();
        }
        if (midiThru || event.getInput() < 0) {
            if (counter != nullptr) counter->setLastNoteOn(true);
            midiPlayer.playMidi(event);
        }
        if (isObserved) notifyObservers(slice, event);
    }

    // With MIDI thru off, events of MIDI inputs are not played, except a note-off if the last event that the player got
    // for that note was a note-on.
    void playNoteOff(Slice& slice, const OrvMidiMessage& event, bool stackNotes)
    {
        Slice::proves(criticalSection);
        NoteCounters::Counter* counter = noteCounters.find(event.getOutput(), event.getChannel(), event.getD1());
        const bool isLast = counter == nullptr || counter->release();
        const bool passes = midiThru || event.getInput() < 0 || (counter != nullptr && counter->wasLastNoteOn());
        if ((isLast || !stackNotes) && passes) {
            if (counter != nullptr) counter->setLastNoteOn(false);
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
    /// Ignored while an arpeggio runs: the first one begins the grid.
    void setStartTime(Slice&, std::int32_t ppq)
    {
        Slice::proves(criticalSection);
        if (startTime < 0) startTime = ppq;
    }
    /// Ends the grid if no arpeggio runs any more.
    void updateStartTime(Slice& slice);
    /// To be called when an arpeggio got a note: its next pulse has to be determined again.
    void wakeArpeggios(Slice&)
    {
        Slice::proves(criticalSection);
        arpeggiosIdle = {};
    }

    /// Posts a played event to the controls, with the output and channel that it had before the layers. The controls
    /// process it on the backend thread.
    void postUpdateControl(Slice& slice, const OrvMidiMessage& event);

    /// Queues an event from inside a slice.
    void postPlayMidi(Slice& slice, const OrvMidiMessage& event);
    /// False also for an index outside the list of outputs.
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
    /// Whether the present event is sent to that output and channel for the first time.
    bool isFirstTo(Slice&, int output, int channel)
    {
        Slice::proves(criticalSection);
        return sentPairs.add(output, channel);
    }
    /// A random number, 0 to 32767.
    std::int32_t drawRandom(Slice&)
    {
        Slice::proves(criticalSection);
        return random.draw();
    }
    /// Sends the present value of an oscillator to the window.
    void showOscValue(Slice& slice, Oscillators::OscId id, std::int32_t value);
    /// Writes to the debug stream, after the slice, why an event was dropped. Not inlined, so that its callers stay
    /// short.
    [[gnu::noinline]] void drop(Slice& slice, const OrvMidiMessage& event, const char* why);

private:
    static constexpr std::int32_t NO_PULSE = -1;

    void drain(Slice& slice, std::int32_t endPpq) REQUIRES(criticalSection);
    void walk(Slice& slice, std::int32_t startPpq, std::int32_t endPpq) REQUIRES(criticalSection);
    void processSpan(Slice& slice, std::int64_t from, std::int64_t until, std::int32_t minPpq)
        REQUIRES(criticalSection);
    void processPpq(Slice& slice, std::int32_t ppq, std::int32_t minPpq) REQUIRES(criticalSection);
    void playDue(Slice& slice, std::int32_t ppq, std::int32_t minPpq) REQUIRES(criticalSection);
    void playArpeggios(Slice& slice, std::int32_t ppq) REQUIRES(criticalSection);
    [[gnu::noinline]] bool serve(Slice& slice, const OrvMidiMessage& item) REQUIRES(criticalSection);
    bool playLive(Slice& slice, const OrvMidiMessage& event) REQUIRES(criticalSection);
    bool releaseLive(Slice& slice, const OrvMidiMessage& event, const OrvMidiMessage& received)
        REQUIRES(criticalSection);
    void playTranslated(Slice& slice, const LiveInputs::Way& way, const OrvMidiMessage& received)
        REQUIRES(criticalSection);
    void startLive(Slice& slice, const OrvMidiMessage& event) REQUIRES(criticalSection);
    void requeue() REQUIRES(criticalSection);
    void endRest() REQUIRES(criticalSection)
    {
        if (std::exchange(wakesClock, false)) midiPlayer.wakeClock();
    }
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
    [[gnu::noinline]] void playRemembered(Slice& slice, OrvMidiMessage& note) REQUIRES(criticalSection);
    [[gnu::noinline]] void playKept(Slice& slice, OrvMidiMessage& note) REQUIRES(criticalSection);
    bool rememberPress(PressMemory::Key key, const OrvMidiMessage& noteOn, std::uint32_t count = 1)
        REQUIRES(criticalSection);
    void moveUsual(Slice& slice, int note) REQUIRES(criticalSection);
    void playToTakers(Slice& slice, const OrvMidiMessage& noteOff, PressMemory::Index run) REQUIRES(criticalSection);
    void playPedal(Slice& slice, OrvMidiMessage& event) REQUIRES(criticalSection);
    void freeSilentLayersLater(Slice& slice) REQUIRES(criticalSection);
    void playOn(Slice& slice, OrvMidiMessage& event) REQUIRES(criticalSection);
    void playThroughLayers(Slice& slice, const OrvMidiMessage& event) REQUIRES(criticalSection);

    void runReset(const OrvMidiMessage& order, ResetRequest& request) EXCLUDES(criticalSection);
    void queueReset(const OrvMidiMessage& order, ResetRequest& request) REQUIRES(criticalSection);
    void serveReset(Slice& slice, const OrvMidiMessage& order) REQUIRES(criticalSection);
    void executeReset(Slice& slice, const OrvMidiMessage& order, ResetRequest& request) REQUIRES(criticalSection);
    void replaceRinging(Slice& slice, ResetRequest& request) REQUIRES(criticalSection);
    void updateObserved() REQUIRES(criticalSection);
    void reset(Slice& slice) REQUIRES(criticalSection);
    void hardReset(Slice& slice) REQUIRES(criticalSection);

    // Set in the constructor
    MidiPlayer& midiPlayer;

    // Used without the lock
    std::atomic<bool> timeSlicesRunning{false};
    std::atomic<int> resetsWaiting{0};

    DeferredEvents deferred;
    std::atomic<bool> refusesInputs{false};
    LongestHold longestHold;  // of the engine lock, by commands
    NoteWatch noteWatch;      // slices count only while `watchesNotes` is on

    CriticalSection criticalSection;

    // Guarded by the engine lock
    LiveInputs liveInputs GUARDED_BY(criticalSection);
    std::int32_t nextPulse GUARDED_BY(criticalSection) = NO_PULSE;  // the end of the last slice
    MidiOutputPorts midiOutputPorts GUARDED_BY(criticalSection);
    std::array<bool, 256> enabledOutputs GUARDED_BY(criticalSection){};  // by the output's byte; none is enabled
    int defaultMidiOutput GUARDED_BY(criticalSection) = -1;
    bool midiThru GUARDED_BY(criticalSection) = true;
    WindowHandle guiWindow GUARDED_BY(criticalSection);
    EventRecorder* recorder GUARDED_BY(criticalSection) = nullptr;
    EventLog* eventLog GUARDED_BY(criticalSection) = nullptr;
    EventLog* inputLog GUARDED_BY(criticalSection) = nullptr;
    bool isObserved GUARDED_BY(criticalSection) = false;  // played events go to the window, the log or the record
    bool watchesNotes GUARDED_BY(criticalSection) = false;
    Controls::ControlUpdates* controlUpdates GUARDED_BY(criticalSection) = nullptr;
    std::vector<OrvMidiMessage> timedEvents GUARDED_BY(criticalSection);  // in order of arrival
    std::vector<OrvMidiMessage> pending GUARDED_BY(criticalSection);      // those of this slice
    std::int32_t earliest GUARDED_BY(criticalSection) = 0;                // the lowest pulse in `pending`
    std::vector<Slice::Drop> drops GUARDED_BY(criticalSection);
    std::vector<ResetRequest*> resetRequests GUARDED_BY(criticalSection);  // one for each queued reset, oldest first
    int resetsUnderWay GUARDED_BY(criticalSection) = 0;
    int keptTempoSource GUARDED_BY(criticalSection) = -1;
    bool keepNotes GUARDED_BY(criticalSection) = false;
    Layers::LayersInPlay layers GUARDED_BY(criticalSection);
    bool remembersAll GUARDED_BY(criticalSection) = false;      // all presses, not only those in zones
    bool olderMayBeSilent GUARDED_BY(criticalSection) = false;  // an older layer has been played or reset
    bool silentLayersPosted GUARDED_BY(criticalSection) = false;
    Oscillators::EngineOscList oscillators GUARDED_BY(criticalSection);
    RandomSource random GUARDED_BY(criticalSection);
    std::int32_t startTime GUARDED_BY(criticalSection) = -1;      // of the arpeggios' grid
    bool resting GUARDED_BY(criticalSection) = false;             // until the next slice
    bool wakesClock GUARDED_BY(criticalSection) = false;          // once in a rest
    Layers::PulseSpan arpeggiosIdle GUARDED_BY(criticalSection);  // the pulses in which no arpeggio does anything
    Zones::EngineZones zones GUARDED_BY(criticalSection);
    PressMemory presses GUARDED_BY(criticalSection);
    UsualPresses usualPresses GUARDED_BY(criticalSection);  // while held notes are kept
    SentPairs sentPairs GUARDED_BY(criticalSection);
    PedalMemory pedals GUARDED_BY(criticalSection);
    DefaultOutputMemory directOutputs GUARDED_BY(criticalSection);
    NoteCounters noteCounters GUARDED_BY(criticalSection);

    // Last, so that its thread ends before the members that it uses are destroyed
    MidiEngineMessageManager messageManager;
};
}  // namespace Backend::MidiEngine
