// What runs inside a time slice: from the queue of events to the player.

#include <algorithm>
#include <limits>
#include <utility>

#include "backend/engine/MidiEngine.h"
#include "backend/engine/ResetRequest.h"
#include "backend/messages/GuiMessages.h"
#include "platform/DbgStream.h"

namespace Backend::MidiEngine
{
namespace
{
// The index of a note in `directOutputs`, -1 if channel or note is outside its range.
constexpr int placeOf(int channel, int note)
{
    const bool inRange = channel >= 0 && channel < NoteCounters::CHANNELS && note < NoteCounters::NOTES;
    return inRange ? channel * NoteCounters::NOTES + note : -1;
}

/// Any other event names its output or its channel.
bool isForLayers(const OrvMidiMessage& event) { return event.isDefaultOutput() && event.isDefaultChannel(); }
}  // namespace

void MidiEngine::playTimeSlice(std::int32_t startPpq, std::int32_t endPpq)
{
    Slice slice;
    {
        const PlayLock lock(criticalSection, longestHold);
        timeSlicesRunning = true;
        resting = wakesClock = false;
        drain(slice, endPpq);
        walk(slice, startPpq, endPpq);
        requeue();
        if (olderMayBeSilent) freeSilentLayersLater(slice);
        nextPulse = endPpq;
        slice.drops.swap(drops);
    }
    finish(slice);
}

bool MidiEngine::tryRest()
{
    const PlayLock lock(criticalSection, longestHold);
    resting = timedEvents.empty() && oscillators.isIdle() && arpeggiosIdle.until == ArpeggioManagement::Arpeggio::NEVER;
    wakesClock = resting;
    return resting;
}

bool MidiEngine::playMidiInputEvent(const OrvMidiMessage& event)
{
    Slice slice;
    {
        const PlayLock lock(criticalSection, longestHold);
        if (!playLive(slice, event)) {
            deferred.add(event.getInput());
            return false;
        }
        endRest();
        slice.drops.swap(drops);
    }
    finish(slice);
    return true;
}

/// Plays an event of an input as the next slice would. False, with nothing done, if it has to take the other way. While
/// the engine rests, the pulse of the last slice is long over, and an arpeggio would begin at it.
bool MidiEngine::playLive(Slice& slice, const OrvMidiMessage& event)
{
    if (refusesInputs.load(std::memory_order_relaxed)) return false;
    if (nextPulse == NO_PULSE || (resting && layers.hasArpeggio()) || deferred.hasAny(event.getInput())) return false;
    const OrvMidiMessage received = MidiInput::MidiEventConfigurationMap::asReceived(event);
    if (keepNotes && liveInputs.getTranslations().knows(received)) return releaseLive(slice, event, received);
    const LiveInputs::Way way = liveInputs.findWay(received);
    if (!way.isDirect) return false;
    startLive(slice, event);
    if (keepNotes) liveInputs.getTranslations().press(received);
    playTranslated(slice, way, received);
    return true;
}

/// The release of a note or pedal, by what it met when it was pressed.
bool MidiEngine::releaseLive(Slice& slice, const OrvMidiMessage& event, const OrvMidiMessage& received)
{
    const auto isDirect = [&](const InputTranslations::Shared& map) {
        return LiveInputs::findWay(received, *map).isDirect;
    };
    if (!liveInputs.takesEvents(event.getInput()) || !liveInputs.getTranslations().allPresses(received, isDirect))
        return false;
    startLive(slice, event);
    liveInputs.getTranslations().release(received, [&](const InputTranslations::Shared& map) {
        Slice::proves(criticalSection);
        playTranslated(slice, LiveInputs::findWay(received, *map), received);
    });
    return true;
}

void MidiEngine::startLive(Slice& slice, const OrvMidiMessage& event)
{
    if (inputLog != nullptr) {
        inputLog->addInputFromSlice(event);
        slice.log = inputLog;
    }
    liveInputs.follow(event);
}

void MidiEngine::playTranslated(Slice& slice, const LiveInputs::Way& way, const OrvMidiMessage& received)
{
    LiveInputs::translate(way, received, [&](OrvMidiMessage& result) {
        Slice::proves(criticalSection);
        result.setPpq(nextPulse);
        playMidi(slice, result);
    });
}

/// Executes a reset. False for a marker that is still to come due; one whose pulse the clock skipped comes due here.
bool MidiEngine::serve(Slice& slice, const OrvMidiMessage& item)
{
    if (!item.isInputMarker()) {
        serveReset(slice, item);
        return true;
    }
    const bool isSkipped = item.isTimedEvent() && item.getPpq() < nextPulse;
    if (isSkipped) deferred.settle(item.getInput());
    return isSkipped;
}

/// Takes the events from the queue. Resets are executed at once; an event without a pulse, or a marker, gets the end of
/// the slice.
void MidiEngine::drain(Slice& slice, std::int32_t endPpq)
{
    earliest = std::numeric_limits<std::int32_t>::max();
    if (timedEvents.empty()) return;
    pending.swap(timedEvents);
    auto kept = pending.begin();
    for (auto event = kept; event != pending.end(); ++event) {
        if (event->getMidiEngineMessageType() != MidiEngineMessageType::midiEvent && serve(slice, *event)) continue;
        if (!event->isTimedEvent()) event->setPpq(endPpq);
        earliest = std::min(earliest, event->getPpq());
        if (kept != event) *kept = *event;
        ++kept;
    }
    pending.erase(kept, pending.end());
}

void MidiEngine::walk(Slice& slice, std::int32_t startPpq, std::int32_t endPpq)
{
    constexpr std::int64_t CATCH_UP = 10;
    const std::int64_t start = startPpq;
    const std::int64_t end = endPpq;
    if (end >= start) {
        if (end - start < MAX_TIME_SLICE) processSpan(slice, start, end, startPpq);
        return;
    }
    // The clock went back: first the events between the two positions are played, then the older ones.
    processSpan(slice, start, start + CATCH_UP, endPpq);
    processSpan(slice, end - CATCH_UP, end, -1);
}

/// Plays those pulses that are not negative and that 32 bits can count.
void MidiEngine::processSpan(Slice& slice, std::int64_t from, std::int64_t until, std::int32_t minPpq)
{
    constexpr std::int64_t PULSES = std::int64_t{std::numeric_limits<std::int32_t>::max()} + 1;
    for (std::int64_t ppq = std::max<std::int64_t>(from, 0); ppq < std::min(until, PULSES); ++ppq)
        processPpq(slice, static_cast<std::int32_t>(ppq), minPpq);
}

/// Plays one pulse: first the events, then the arpeggios, then the oscillators.
void MidiEngine::processPpq(Slice& slice, std::int32_t ppq, std::int32_t minPpq)
{
    if (ppq >= earliest) playDue(slice, ppq, minPpq);
    if (!arpeggiosIdle.contains(ppq)) playArpeggios(slice, ppq);
    oscillators.step(slice, *this, ppq);
}

void MidiEngine::playDue(Slice& slice, std::int32_t ppq, std::int32_t minPpq)
{
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

/// Plays the arpeggios in the order of the layers. The next pulses are determined after that, because an arpeggio that
/// stops may end the grid of the others.
void MidiEngine::playArpeggios(Slice& slice, std::int32_t ppq)
{
    layers.forEachArpeggio([&](Layers::EngineLayer& layer) { layer.playArpeggio(slice, *this, ppq); });
    std::int32_t until = ArpeggioManagement::Arpeggio::NEVER;
    const std::int32_t start = startTime;
    layers.forEachArpeggio(
        [&](const Layers::EngineLayer& layer) { until = std::min(until, layer.nextArpeggioPulse(ppq, start)); });
    arpeggiosIdle = {.from = ppq, .until = until};
    olderMayBeSilent = layers.hasOlder();
}

void MidiEngine::updateStartTime(Slice&)
{
    Slice::proves(criticalSection);
    bool anyRuns = false;
    layers.forEachArpeggio([&](const Layers::EngineLayer& layer) { anyRuns |= layer.getArpeggioStart() >= 0; });
    if (!anyRuns) startTime = -1;
}

/// The command thread frees older layers that have nothing left to play.
void MidiEngine::freeSilentLayersLater(Slice& slice)
{
    olderMayBeSilent = false;
    if (silentLayersPosted || !layers.hasSilent(presses)) return;
    silentLayersPosted = true;
    messageManager.postFreeSilentLayersFromSlice();
    slice.commands = &messageManager;
}

/// Puts the events that were not due back into the queue, after those queued during the slice.
void MidiEngine::requeue()
{
    if (pending.empty()) return;
    if (timedEvents.empty())
        timedEvents.swap(pending);
    else
        timedEvents.insert(timedEvents.end(), pending.begin(), pending.end());
    pending.clear();
}

void MidiEngine::playMidi(Slice& slice, OrvMidiMessage& event)
{
    Slice::proves(criticalSection);
    if (event.getChannel() < -1 || event.getChannel() > 15 || event.getOutput() < -1) {
        if (event.isInputMarker()) return deferred.settle(event.getInput());
        return drop(slice, event, "no such channel or output");
    }
    if (event.isNote() && (event.getZone() >= 0 || remembersAll))
        return keepNotes ? playKept(slice, event) : playRemembered(slice, event);
    if (keepNotes && event.isPedal()) return playPedal(slice, event);
    playOn(slice, event);
}

/// Plays a pedal event. One that goes up goes up also where the route sent it when it was down, whether it is sent
/// there now or not.
void MidiEngine::playPedal(Slice& slice, OrvMidiMessage& event)
{
    const OrvMidiMessage received = event;
    const PressMemory::Key route = PressMemory::keyOf(received);
    const bool isDown = received.getD2() > 0;
    const bool passes = midiThru || received.getInput() < 0;
    if (isDown && !pedals.hasRoom()) return drop(slice, event, "too many pedals are down");
    sentPairs.begin();
    playOn(slice, event);
    if (isDown) {
        if (passes)
            sentPairs.forEach([&](int output, int channel) {
                Slice::proves(criticalSection);
                pedals.press(route, output, channel);
            });
        return;
    }
    pedals.release(route, [&](int output, int channel) {
        Slice::proves(criticalSection);
        if (!isOutputEnabled(slice, output) || (passes && sentPairs.contains(output, channel))) return;
        playMidiInternal(
            slice,
            {{.type = MessageType::controllerChange, .d1 = received.getD1(), .channel = channel, .output = output}},
            false);
    });
}

void MidiEngine::playOn(Slice& slice, OrvMidiMessage& event)
{
    if (isForLayers(event))
        playThroughLayers(slice, event);
    else
        playDirect(slice, event);
}

/// Plays a note that has a zone, or any note while a layer has a velocity range or held notes are kept. Its note-off
/// ends what the note-on started, even if zones or layers were changed in between.
void MidiEngine::playRemembered(Slice& slice, OrvMidiMessage& note)
{
    const PressMemory::Key key = PressMemory::keyOf(note);
    const bool isInZone = note.getZone() >= 0;
    const bool isUsual = keepNotes && UsualPresses::isUsual(note);
    const bool hasVelocityRange = layers.now().hasVelocityRange();
    if (note.isNoteOn()) {
        if (isInZone) note.setD1(zones.press(note));
        if (!rememberPress(key, note)) return drop(slice, note, "too many keys are down");
        return playOn(slice, note);
    }
    const bool isKnown = presses.release(key, [&](const PressMemory::Run& run, PressMemory::Index index) {
        Slice::proves(criticalSection);
        if (isUsual && run.count > 0) usualPresses.removeElsewhere(note.getD1());
        OrvMidiMessage noteOff = note;
        noteOff.setD1(run.outcome.value);
        const bool isOlder = keepNotes && run.generation != layers.getGeneration() && isForLayers(note);
        if (hasVelocityRange || (isOlder && layers.hasVelocityRange(index))) noteOff.setD2(run.velocity);
        if (isOlder)
            playToTakers(slice, noteOff, index);
        else
            playOn(slice, noteOff);
    });
    if (isKnown) return;
    if (isInZone) note.setD1(zones.getLastSounding(note));
    if (hasVelocityRange) note.setD2(0);
    playOn(slice, note);
}

/// Remembers a press with its sounding note. While held notes are kept, two presses have one outcome only if the same
/// layers took them; as long as the layers are not replaced, that is the case. False if the memory is full.
bool MidiEngine::rememberPress(PressMemory::Key key, const OrvMidiMessage& noteOn, std::uint32_t count)
{
    const std::uint8_t velocity = noteOn.getD2();
    const PressMemory::Press press{
        .outcome = {.value = noteOn.getD1(), .velocityClass = layers.now().getVelocityClass(velocity)},
        .velocity = velocity,
        .generation = layers.getGeneration(),
        .count = count};
    if (!keepNotes) return presses.press(key, press);
    const bool hasTakers = isForLayers(noteOn);
    const auto isSame = [&](const PressMemory::Run& run, PressMemory::Index index) {
        Slice::proves(criticalSection);
        return run.outcome.value == press.outcome.value &&
               layers.now().getVelocityClass(run.velocity) == press.outcome.velocityClass &&
               (!hasTakers || run.generation == press.generation || layers.areTakers(index, noteOn));
    };
    const auto [run, isNew] = presses.press(key, press, isSame);
    if (run == PressMemory::NONE) return false;
    if (isNew) layers.clearTakers(run);
    if (isNew && hasTakers) layers.addTakers(run, noteOn);
    if (UsualPresses::isUsual(noteOn)) usualPresses.addElsewhere(noteOn.getD1(), count);
    return true;
}

/// Plays a note while held notes are kept.
void MidiEngine::playKept(Slice& slice, OrvMidiMessage& note)
{
    if (!UsualPresses::isUsual(note)) return playRemembered(slice, note);
    const Layers::EngineLayerList& list = layers.now();
    if (note.isNoteOn()) {
        if (!usualPresses.press(note, list.getVelocityClass(note.getD2()))) {
            if (usualPresses.has(note)) moveUsual(slice, note.getD1());
            return playRemembered(slice, note);
        }
    } else {
        const int velocity = usualPresses.release(note);
        if (velocity == UsualPresses::NOT_HERE) return playRemembered(slice, note);
        if (list.hasVelocityRange()) note.setD2(velocity);
    }
    playThroughLayers(slice, note);
}

/// Moves the usual presses of a note to the memory for all others, with the layers that took them. If that is full,
/// they end.
void MidiEngine::moveUsual(Slice& slice, int note)
{
    usualPresses.take(note, [&](OrvMidiMessage event, std::uint32_t count) {
        Slice::proves(criticalSection);
        if (rememberPress(PressMemory::keyOf(event), event, count)) return;
        event.setToNoteOff();
        for (; count > 0; --count) playThroughLayers(slice, event);
    });
}

/// A note-off of a press that layers of an earlier moment took.
void MidiEngine::playToTakers(Slice& slice, const OrvMidiMessage& noteOff, PressMemory::Index run)
{
    olderMayBeSilent = true;
    if (watchesNotes) noteWatch.pass(noteOff);
    const DefaultRoute route(noteOff, defaultMidiOutput);
    layers.forEachTaker(run, [&](Layers::EngineLayer& layer) { layer.playTaken(slice, *this, noteOff, route); });
}

/// Passes the event to every layer that takes it.
void MidiEngine::playThroughLayers(Slice& slice, const OrvMidiMessage& event)
{
    const Layers::EngineLayerList& list = layers.now();
    if (list.isEmpty()) return drop(slice, event, "there is no layer");
    if (event.isNote()) {
        if (watchesNotes) noteWatch.pass(event);
        const DefaultRoute route(event, defaultMidiOutput);
        for (Layers::EngineLayer* layer : list.taking(event.getD1())) layer->playNote(slice, *this, event, route);
        return;
    }
    sentPairs.begin();
    for (Layers::EngineLayer* layer : list.playing()) layer->playOther(slice, *this, event);
    if (sentPairs.hasAny()) postUpdateControl(slice, event);  // once, however many layers sent it
}

void MidiEngine::playDirect(Slice& slice, OrvMidiMessage& event)
{
    if (!event.isNote()) return playOtherDirect(slice, event);
    if (watchesNotes) noteWatch.pass(event);
    const DefaultRoute route(event, defaultMidiOutput);  // of the event as it was received
    if (event.isDefaultChannel()) event.setChannel(0);
    if (event.isDefaultOutput())
        playToDefaultOutput(slice, event, route);
    else
        sendDirect(slice, event);
}

void MidiEngine::playToDefaultOutput(Slice& slice, OrvMidiMessage& note, DefaultRoute route)
{
    const int place = placeOf(note.getChannel(), note.getD1());
    if (place >= 0 && note.isNoteOff())
        return directOutputs.release(presses, static_cast<std::size_t>(place), route, [&](int output) {
            note.setOutput(output);
            Slice::proves(criticalSection);
            sendDirect(slice, note);
        });
    note.setOutput(defaultMidiOutput);
    if (place >= 0 && isOutputEnabled(slice, defaultMidiOutput) &&
        !directOutputs.press(presses, static_cast<std::size_t>(place), route))
        return drop(slice, note, "too many keys are down");
    sendDirect(slice, note);
}

void MidiEngine::sendDirect(Slice& slice, const OrvMidiMessage& note)
{
    if (!isOutputEnabled(slice, note.getOutput())) return drop(slice, note, "output missing or not enabled");
    playMidiInternal(slice, note, false);
}

/// Controls get the event with the output that it names, if any, and with its channel.
void MidiEngine::playOtherDirect(Slice& slice, OrvMidiMessage& event)
{
    OrvMidiMessage update = event;
    update.setChannel(event.getChannel());
    if (event.isDefaultChannel()) event.setChannel(0);
    if (event.isDefaultOutput()) event.setOutput(defaultMidiOutput);
    if (!isOutputEnabled(slice, event.getOutput())) return drop(slice, event, "output missing or not enabled");
    postUpdateControl(slice, update);
    if (keepNotes) isFirstTo(slice, event.getOutput(), event.getChannel());
    playMidiInternal(slice, event, false);
}

void MidiEngine::postUpdateControl(Slice& slice, const OrvMidiMessage& event)
{
    Slice::proves(criticalSection);
    if (controlUpdates == nullptr || !controlUpdates->follows(event)) return;
    controlUpdates->postFromSlice(event);
    slice.controls = controlUpdates;
}

void MidiEngine::playMidiInternal(Slice& slice, const OrvMidiMessage& event, bool stackNotes)
{
    Slice::proves(criticalSection);
    if (event.isNoteOn()) return playNoteOn(slice, event);
    if (event.isNoteOff()) return playNoteOff(slice, event, stackNotes);
    if (midiThru || event.getInput() < 0) midiPlayer.playMidi(event);
    if (isObserved) notifyObservers(slice, event);
}

void MidiEngine::notifyObservers(Slice& slice, const OrvMidiMessage& event)
{
    if (recorder != nullptr) record(slice, event);
    if (eventLog != nullptr) {
        eventLog->addFromSlice(event);
        slice.log = eventLog;
    }
    if (guiWindow) show(slice, event);
    if (watchesNotes && event.isNote()) noteWatch.play(event);
}

/// All events of a slice are recorded with the same time.
void MidiEngine::record(Slice& slice, const OrvMidiMessage& event)
{
    if (!slice.milliseconds) slice.milliseconds = midiPlayer.getMilliseconds();
    recorder->addEvent(event.getMidiMessage(), event.getOutput(), *slice.milliseconds);
    slice.recorder = recorder;
}

void MidiEngine::show(Slice& slice, const OrvMidiMessage& event)
{
    postToWindow(slice,
                 {.number = GuiMessage::MIDI_OUTPUT_EVENT, .wparam = event.getWparam(), .lparam = event.getLparam()});
}

void MidiEngine::showOscValue(Slice& slice, Oscillators::OscId id, std::int32_t value)
{
    Slice::proves(criticalSection);
    if (guiWindow)
        postToWindow(slice,
                     {.number = GuiMessage::OSC_VALUE, .wparam = static_cast<std::uint32_t>(id), .lparam = value});
}

void MidiEngine::postToWindow(Slice& slice, Message message)
{
    guiWindow.postFromSlice(std::move(message));
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

/// What must be done without the lock: wakes the threads that have new messages, and the senders of resets.
void MidiEngine::finish(Slice& slice)
{
    slice.window.wake();
    if (slice.recorder != nullptr) slice.recorder->wake();
    if (slice.log != nullptr) slice.log->wake();
    if (slice.controls != nullptr) slice.controls->wake();
    if (slice.commands != nullptr) slice.commands->wake();
    for (ResetRequest* request = slice.served; request != nullptr;) {
        ResetRequest* next = request->next;
        request->done.set();  // the sender may destroy the request now
        request = next;
    }
    if (!slice.drops.empty()) report(slice.drops);
}

void MidiEngine::report(std::span<const Slice::Drop> drops)
{
    for (const auto& [event, why] : drops)
        WindowsLib::DbgStream() << "dropped " << event.getMidiMessage().toXmlString() << ", channel "
                                << int{event.getChannel()} << ", output " << int{event.getOutput()} << ": " << why;
}
}  // namespace Backend::MidiEngine
