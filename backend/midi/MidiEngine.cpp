#include "backend/midi/MidiEngine.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
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
    std::array<bool, 256> enabled{};
    for (int output = 0; output < NoteCounters::OUTPUTS; ++output)
        enabled[static_cast<unsigned>(output)] = isEnabled(ports, output);
    const auto isGone = [&](int output) { return !enabled[static_cast<unsigned>(output)]; };

    const Locked lock(criticalSection);
    midiOutputPorts.swap(ports);
    enabledOutputs = enabled;
    for (int output = 0; output < NoteCounters::OUTPUTS; ++output)
        if (isGone(output)) noteCounters.clearOutput(output);
    directOutputs.forget(isGone);
    for (Layers::EngineLayer& layer : layers.all()) layer.forgetOutputs(isGone);
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

void MidiEngine::setZoneMap(std::vector<Zones::Zone> newZones)
{
    const Locked lock(criticalSection);
    zones.set(newZones);
}

void MidiEngine::setZone(Zones::Zone zone)
{
    const Locked lock(criticalSection);
    zones.setTranspose(zone);
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
    earliest = std::numeric_limits<std::int32_t>::max();
    auto kept = pending.begin();
    for (auto event = kept; event != pending.end(); ++event) {
        if (event->getMidiEngineMessageType() != MidiEngineMessageType::midiEvent) {
            serveReset(slice, *event);
            continue;
        }
        if (!event->isTimedEvent()) event->setPpq(endPpq);
        earliest = std::min(earliest, event->getPpq());
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
    if (ppq < 0 || ppq < earliest) return;
    earliest = std::numeric_limits<std::int32_t>::max();
    auto kept = pending.begin();
    for (auto event = kept; event != pending.end(); ++event) {
        if (event->getPpq() <= ppq && event->getPpq() >= minPpq) {
            playMidi(slice, *event);
            continue;
        }
        earliest = std::min(earliest, event->getPpq());
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

void MidiEngine::playMidi(Slice& slice, OrvMidiMessage& event)
{
    Slice::proves(criticalSection);
    if (event.getChannel() < -1 || event.getChannel() > 15 || event.getOutput() < -1)
        return drop(slice, event, "no such channel or output");
    if (event.isNote() && (event.getZone() >= 0 || layers.hasVelocityRange())) follow(event);
    if (event.isDefaultOutput() && event.isDefaultChannel())
        playThroughLayers(slice, event);
    else
        playDirect(slice, event);
}

/// A note off becomes the note that its note on became in its zone, and takes its velocity, so that it passes the same
/// velocity ranges.
void MidiEngine::follow(OrvMidiMessage& event)
{
    const std::size_t press = presses.placeOf(event);
    if (event.getZone() >= 0) event.setD1(zones.soundingNote(event, presses, press));
    if (!layers.hasVelocityRange()) return;
    if (event.isNoteOn())
        presses.rememberVelocity(press, event.getD2());
    else
        event.setD2(presses.takeVelocity(press));
}

/// Every layer is offered the event as it is here; none keeps it from the next.
void MidiEngine::playThroughLayers(Slice& slice, const OrvMidiMessage& event)
{
    if (layers.isEmpty()) return drop(slice, event, "there is no layer");
    if (event.isNote()) {
        for (Layers::EngineLayer* layer : layers.taking(event.getD1())) layer->playNote(slice, *this, event);
        return;
    }
    sentPairs.begin();
    for (Layers::EngineLayer* layer : layers.playing()) layer->playOther(slice, *this, event);
}

void MidiEngine::playDirect(Slice& slice, OrvMidiMessage& event)
{
    const bool toDefaultOutput = event.isDefaultOutput();
    if (event.isDefaultChannel()) event.setChannel(0);
    if (toDefaultOutput) event.setOutput(getDefaultOutputFor(event));
    if (!isOutputEnabled(slice, event.getOutput())) return drop(slice, event, "output missing or not enabled");

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
            if (const int output = directOutputs.take(static_cast<std::size_t>(place)); output != NoteMemory::NONE)
                return output;
    return defaultMidiOutput;
}

void MidiEngine::playMidiInternal(Slice& slice, const OrvMidiMessage& event, bool stackNotes)
{
    Slice::proves(criticalSection);
    if (event.isNoteOn()) return playNoteOn(slice, event);
    if (event.isNoteOff()) return playNoteOff(slice, event, stackNotes);
    if (midiThru || event.getInput() < 0) midiPlayer.playMidi(event);
    if (guiWindow) show(slice, event);
}

void MidiEngine::show(Slice& slice, const OrvMidiMessage& event)
{
    guiWindow.postFromSlice(
        {.number = GuiMessage::MIDI_OUTPUT_EVENT, .wparam = event.getWparam(), .lparam = event.getLparam()});
    if (!slice.window) slice.window = guiWindow;
}

void MidiEngine::postPlayMidi(Slice&, const OrvMidiMessage& event)
{
    Slice::proves(criticalSection);
    timedEvents.push_back(event);
}

void MidiEngine::drop(Slice&, const OrvMidiMessage& event, const char* why)
{
    Slice::proves(criticalSection);
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

void MidiEngine::sendReset()
{
    ResetRequest request;
    runReset(OrvMidiMessage::createOrvReset(), request);
}

void MidiEngine::sendHardReset()
{
    ResetRequest request;
    runReset(OrvMidiMessage::createOrvHardReset(), request);
}

// The old layers come back with the request and go with it, outside the lock.
void MidiEngine::setLayerList(std::vector<Layers::Layer> newLayers)
{
    ResetRequest request;
    request.layers.emplace(newLayers);
    runReset(OrvMidiMessage::createOrvReset(), request);
}

void MidiEngine::runReset(const OrvMidiMessage& order, ResetRequest& request)
{
    Slice slice;
    const bool atOnce = isMidiPlayerThread();
    {
        const Locked lock(criticalSection);
        if (atOnce)
            carryOut(slice, order, request);
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
    ResetRequest& request = *resetRequests.front();
    carryOut(slice, order, request);
    resetRequests.erase(resetRequests.begin());
    --resetsWaiting;
    if (request.waiter != nullptr) request.waiter->setWaiting(false);
    request.next = std::exchange(slice.served, &request);
}

void MidiEngine::carryOut(Slice& slice, const OrvMidiMessage& order, ResetRequest& request)
{
    if (order.isOrvHardReset())
        hardReset(slice);
    else
        reset(slice);
    if (request.layers) layers.swap(*request.layers);
}

void MidiEngine::reset(Slice& slice)
{
    noteCounters.clear([&](int output, int channel, int note) {
        const OrvMidiMessage noteOff(MessageType::noteOff, note, RESET_VELOCITY, channel, output,
                                     OrvMidiMessage::DEFAULT_ZONE, OrvMidiMessage::DEFAULT_INPUT, -1);
        playMidiInternal(slice, noteOff, false);
    });
    presses.forgetVelocities();
    for (Layers::EngineLayer& layer : layers.all()) layer.reset();
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
