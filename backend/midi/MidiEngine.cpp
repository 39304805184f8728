#include "backend/midi/MidiEngine.h"

#include <array>
#include <cmath>
#include <utility>

#include "backend/core/GuiMessages.h"
#include "backend/midi/ResetRequest.h"
#include "platform/DbgStream.h"

namespace Backend::MidiEngine
{
namespace
{
constexpr int RESET_VELOCITY = 100;

// The place of a direct note in the memory of outputs; none for what is no note of a channel.
constexpr int placeOf(int channel, int note)
{
    const bool inRange = channel >= 0 && channel < NoteCounters::CHANNELS && note < NoteCounters::NOTES;
    return inRange ? channel * NoteCounters::NOTES + note : -1;
}

constexpr std::size_t ROOM_FOR_EVENTS = 1024;
}  // namespace

MidiEngine::MidiEngine(MidiPlayer& player)
    : midiPlayer(player), directOutputs(NoteCounters::CHANNELS * NoteCounters::NOTES), messageManager(*this)
{
    timedEvents.reserve(ROOM_FOR_EVENTS);
    pending.reserve(ROOM_FOR_EVENTS);
}

void MidiEngine::initialize(int output, bool thru)
{
    setDefaultMidiOutput(output);
    setMidiThru(thru);
    messageManager.start();
}

void MidiEngine::end() { messageManager.stop(); }

std::int32_t MidiEngine::milliseconds2Ppq(double milliseconds, int tempo)
{
    return static_cast<std::int32_t>(std::floor(tempo / 60000.0 * milliseconds * PULSES_PER_QUARTER + 0.5)) +
           FIRST_PULSE;
}

// --- commands

void MidiEngine::appendTimedEvent(const OrvMidiMessage& event)
{
    const Locked lock(criticalSection);
    timedEvents.push_back(event);
}

// The old lists go when the argument does, outside the lock.
void MidiEngine::setMidiInputPorts(MidiInputPorts ports)
{
    const Locked lock(criticalSection);
    midiInputPorts.swap(ports);
}

void MidiEngine::setMidiOutputPorts(MidiOutputPorts ports)
{
    std::array<bool, NoteCounters::OUTPUTS> isGone{};
    for (int output = 0; output < NoteCounters::OUTPUTS; ++output)
        isGone[static_cast<unsigned>(output)] = !isEnabled(ports, output);

    const Locked lock(criticalSection);
    midiOutputPorts.swap(ports);
    for (int output = 0; output < NoteCounters::OUTPUTS; ++output)
        if (isGone[static_cast<unsigned>(output)]) noteCounters.clearOutput(output);
    directOutputs.forget([&](int output) { return isGone[static_cast<unsigned>(output)]; });
}

void MidiEngine::enableMidiInput(int port, bool enabled)
{
    const Locked lock(criticalSection);
    midiPlayer.enableMidiInput(port, enabled);
}

void MidiEngine::enableMidiOutput(int port, bool enabled)
{
    const Locked lock(criticalSection);
    midiPlayer.enableMidiOutput(port, enabled);
}

void MidiEngine::setDefaultMidiOutput(int port)
{
    const Locked lock(criticalSection);
    defaultMidiOutput = port;
}

void MidiEngine::setMidiThru(bool on)
{
    const Locked lock(criticalSection);
    midiThru = on;
}

void MidiEngine::setTempo(int bpm)
{
    const Locked lock(criticalSection);
    midiPlayer.setTempo(bpm);
}

void MidiEngine::setTempoSource(int source)
{
    const Locked lock(criticalSection);
    keptTempoSource = source;
    // During a reset the clock stays internal; the new source takes over when the reset is done.
    if (resetsUnderWay == 0) midiPlayer.setTempoSource(static_cast<char>(source));
}

void MidiEngine::setGuiWindowHandle(WindowHandle window)
{
    const Locked lock(criticalSection);
    std::swap(guiWindow, window);
}

// --- the time slice

void MidiEngine::playTimeSlice(std::int32_t startPpq, std::int32_t endPpq)
{
    Slice slice;
    {
        const Locked lock(criticalSection);
        timeSlicesRunning = true;
        drain(slice, endPpq);
        walk(slice, startPpq, endPpq);
        requeue();
        slice.drops.swap(drops);
    }
    finish(slice);
}

/// Takes over what was queued: resets run at once, events get their place in pulse order.
void MidiEngine::drain(Slice& slice, std::int32_t endPpq)
{
    pending.swap(timedEvents);
    auto kept = pending.begin();
    for (auto event = kept; event != pending.end(); ++event) {
        if (event->getMidiEngineMessageType() != MidiEngineMessageType::midiEvent) {
            serveReset(slice, *event);
            continue;
        }
        if (!event->isTimedEvent()) event->setPpq(endPpq);
        if (kept != event) *kept = *event;
        ++kept;
    }
    pending.erase(kept, pending.end());
}

void MidiEngine::walk(Slice& slice, std::int32_t startPpq, std::int32_t endPpq)
{
    constexpr std::int32_t CATCH_UP = 10;
    if (endPpq >= startPpq) {
        if (std::int64_t{endPpq} - startPpq >= MAX_TIME_SLICE) return;
        for (std::int32_t ppq = startPpq; ppq < endPpq; ++ppq) processPpq(slice, ppq, startPpq);
        return;
    }
    // The clock went back: let off what lies between the two positions, then whatever is older.
    for (std::int32_t pulse = 0; pulse < CATCH_UP; ++pulse) processPpq(slice, startPpq + pulse, endPpq);
    for (std::int32_t pulse = -CATCH_UP; pulse < 0; ++pulse) processPpq(slice, endPpq + pulse, -1);
}

void MidiEngine::processPpq(Slice& slice, std::int32_t ppq, std::int32_t minPpq)
{
    if (ppq < 0 || pending.empty()) return;
    auto kept = pending.begin();
    for (auto event = kept; event != pending.end(); ++event) {
        if (event->getPpq() <= ppq && event->getPpq() >= minPpq) {
            playMidi(slice, *event);
            continue;
        }
        if (kept != event) *kept = *event;
        ++kept;
    }
    pending.erase(kept, pending.end());
}

/// What was not due goes back behind what was scheduled meanwhile.
void MidiEngine::requeue()
{
    if (timedEvents.empty())
        timedEvents.swap(pending);
    else
        timedEvents.insert(timedEvents.end(), pending.begin(), pending.end());
    pending.clear();
}

void MidiEngine::playMidi(Slice& slice, const OrvMidiMessage& event)
{
    Slice::proves(criticalSection);
    if (event.getChannel() < -1 || event.getChannel() > 15 || event.getOutput() < -1)
        return drop(event, "no such channel or output");
    if (event.isDefaultOutput() && event.isDefaultChannel()) return drop(event, "no layer takes it");
    playDirect(slice, event);
}

void MidiEngine::playDirect(Slice& slice, OrvMidiMessage event)
{
    const bool toDefaultOutput = event.isDefaultOutput();
    if (event.isDefaultChannel()) event.setChannel(0);
    if (toDefaultOutput) event.setOutput(getDefaultOutputFor(event));
    if (!isEnabled(midiOutputPorts, event.getOutput())) return drop(event, "output missing or not enabled");

    if (toDefaultOutput && event.isNoteOn())
        if (const int place = placeOf(event.getChannel(), event.getD1()); place >= 0)
            directOutputs.remember(static_cast<std::size_t>(place), event.getOutput());
    playMidiInternal(slice, event, false);
}

/// Where an event for the default output goes: a note off to wherever its note on went.
int MidiEngine::getDefaultOutputFor(const OrvMidiMessage& event)
{
    if (event.isNoteOff())
        if (const int place = placeOf(event.getChannel(), event.getD1()); place >= 0)
            if (const int output = directOutputs.take(static_cast<std::size_t>(place)); output >= 0) return output;
    return defaultMidiOutput;
}

void MidiEngine::playMidiInternal(Slice& slice, const OrvMidiMessage& event, bool stackNotes)
{
    Slice::proves(criticalSection);
    NoteCounters::Counter* counter =
        event.isNote() ? noteCounters.find(event.getOutput(), event.getChannel(), event.getD1()) : nullptr;

    bool heldBack = false;
    if (event.isNoteOff())
        heldBack = counter != nullptr && !counter->release() && stackNotes;
    else if (counter != nullptr)
        counter->press();

    if (!heldBack && reachesPlayer(event, counter)) {
        if (counter != nullptr) counter->setPlayerHolds(event.isNoteOn());
        midiPlayer.playMidi(event);
    }
    if (guiWindow) {
        guiWindow.postFromSlice(
            {.number = GuiMessage::MIDI_OUTPUT_EVENT, .wparam = event.getWparam(), .lparam = event.getLparam()});
        if (!slice.window) slice.window = guiWindow;
    }
}

/// What came in on a MIDI input is passed on only with thru, but the note off of a note that the player holds always.
bool MidiEngine::reachesPlayer(const OrvMidiMessage& event, const NoteCounters::Counter* counter) const
{
    if (midiThru || event.getInput() < 0) return true;
    return event.isNoteOff() && counter != nullptr && counter->doesPlayerHold();
}

void MidiEngine::postPlayMidi(Slice&, const OrvMidiMessage& event)
{
    Slice::proves(criticalSection);
    timedEvents.push_back(event);
}

bool MidiEngine::isOutputEnabled(Slice&, int output) const
{
    Slice::proves(criticalSection);
    return isEnabled(midiOutputPorts, output);
}

int MidiEngine::getDefaultMidiOutput(Slice&) const
{
    Slice::proves(criticalSection);
    return defaultMidiOutput;
}

void MidiEngine::drop(const OrvMidiMessage& event, const char* why)
{
    if (WindowsLib::DbgStream::isEnabled()) drops.push_back({.event = event, .why = why});
}

/// What a slice leaves to be done without the lock: whoever sleeps is woken, once.
void MidiEngine::finish(Slice& slice)
{
    slice.window.wake();
    for (ResetRequest* request = slice.served; request != nullptr;) {
        ResetRequest* next = request->next;
        request->done.set();  // from here on it is gone
        request = next;
    }
    for (const auto& [event, why] : slice.drops)
        WindowsLib::DbgStream() << "dropped " << event.getMidiMessage().toXmlString() << ", channel "
                                << int{event.getChannel()} << ", output " << int{event.getOutput()} << ": " << why;
}

// --- resets

void MidiEngine::sendReset() { runReset(OrvMidiMessage::createOrvReset()); }

void MidiEngine::sendHardReset() { runReset(OrvMidiMessage::createOrvHardReset()); }

void MidiEngine::runReset(const OrvMidiMessage& order)
{
    ResetRequest request;
    Slice slice;
    const bool atOnce = isMidiPlayerThread();
    {
        const Locked lock(criticalSection);
        if (atOnce)
            carryOut(slice, order);
        else
            queueReset(order, request);
    }
    finish(slice);
    if (atOnce) return;

    request.done.wait();
    const Locked lock(criticalSection);
    if (--resetsUnderWay == 0) midiPlayer.setTempoSource(static_cast<char>(keptTempoSource));
}

/// With an external tempo source the slices may have stopped with its clock, so the first reset puts the clock inside
/// and the last one puts it back.
void MidiEngine::queueReset(const OrvMidiMessage& order, ResetRequest& request)
{
    if (resetsUnderWay++ == 0) {
        keptTempoSource = midiPlayer.getTempoSource();
        midiPlayer.setTempoSource(-1);
    }
    timedEvents.push_back(order);
    resetRequests.push_back(&request);
    ++resetsWaiting;
    if (request.waiter != nullptr) request.waiter->setWaiting(true);
}

void MidiEngine::serveReset(Slice& slice, const OrvMidiMessage& order)
{
    carryOut(slice, order);
    ResetRequest& request = *resetRequests.front();
    resetRequests.erase(resetRequests.begin());
    --resetsWaiting;
    if (request.waiter != nullptr) request.waiter->setWaiting(false);
    request.next = std::exchange(slice.served, &request);
}

void MidiEngine::carryOut(Slice& slice, const OrvMidiMessage& order)
{
    if (order.isOrvHardReset())
        hardReset(slice);
    else
        reset(slice);
}

void MidiEngine::reset(Slice& slice)
{
    noteCounters.clear([&](int output, int channel, int note) {
        const OrvMidiMessage noteOff(MessageType::noteOff, note, RESET_VELOCITY, channel, output,
                                     OrvMidiMessage::DEFAULT_ZONE, OrvMidiMessage::DEFAULT_INPUT, -1);
        playMidiInternal(slice, noteOff, false);
    });
    directOutputs.clear();
}

void MidiEngine::hardReset(Slice& slice)
{
    reset(slice);
    for (int channel = 0; channel < NoteCounters::CHANNELS; ++channel) {
        playMidiInternal(slice, OrvMidiMessage::createAllSoundOffCC(defaultMidiOutput, channel), false);
        playMidiInternal(slice, OrvMidiMessage::createAllControllersOffCC(defaultMidiOutput, channel), false);
    }
    playMidiInternal(slice, OrvMidiMessage::createSystemReset(defaultMidiOutput), false);
}
}  // namespace Backend::MidiEngine
