// Resets, which end all notes, and new lists of layers and oscillators, which replace the old ones after a reset, or
// without one.

#include <utility>

#include "backend/engine/MidiEngine.h"
#include "backend/engine/ResetRequest.h"

namespace Backend::MidiEngine
{
namespace
{
constexpr int RESET_VELOCITY = 100;
}

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

// The request has the old lists afterwards; they are freed with it, outside the lock.

void MidiEngine::setLayerList(std::vector<Layers::Layer> newLayers)
{
    ResetRequest request;
    request.layers.emplace(newLayers);
    runReset(OrvMidiMessage::createReplacement(), request);
}

void MidiEngine::setOscList(std::vector<Oscillators::Oscillator> newOscillators)
{
    ResetRequest request;
    request.oscillators.emplace(newOscillators);
    runReset(OrvMidiMessage::createReplacement(), request);
}

void MidiEngine::setKeepNotes(bool on)
{
    {
        const CommandLock lock(criticalSection, longestHold);
        if (keepNotes == on) return;
    }
    ResetRequest request;
    request.keepNotes = on;
    runReset(OrvMidiMessage::createOrvReset(), request);
}

void MidiEngine::freeSilentLayers()
{
    Layers::LayersInPlay::Older silent;
    const CommandLock lock(criticalSection, longestHold);
    layers.takeSilent(presses, silent);
    silentLayersPosted = false;
}

void MidiEngine::runReset(const OrvMidiMessage& order, ResetRequest& request)
{
    Slice slice;
    if (isMidiPlayerThread()) {
        {
            const Locked lock(criticalSection);
            executeReset(slice, order, request);
        }
        return finish(slice);
    }
    {
        const CommandLock lock(criticalSection, longestHold);
        queueReset(order, request);
    }

    request.done.wait();
    const CommandLock lock(criticalSection, longestHold);
    if (--resetsUnderWay == 0) midiPlayer.setTempoSource(static_cast<char>(keptTempoSource));
}

/// With an external tempo source, the slices may have stopped together with its clock. Therefore the first reset
/// selects the internal clock, and the last one restores the source.
void MidiEngine::queueReset(const OrvMidiMessage& order, ResetRequest& request)
{
    if (resetsUnderWay++ == 0) {
        keptTempoSource = midiPlayer.getTempoSource();
        midiPlayer.setTempoSource(-1);
    }
    timedEvents.push_back(order);
    endRest();
    resetRequests.push_back(&request);
    ++resetsWaiting;
    if (request.waiter != nullptr) request.waiter->setWaiting(true);
}

void MidiEngine::serveReset(Slice& slice, const OrvMidiMessage& order)
{
    ResetRequest& request = *resetRequests.front();
    executeReset(slice, order, request);
    resetRequests.erase(resetRequests.begin());
    --resetsWaiting;
    if (request.waiter != nullptr) request.waiter->setWaiting(false);
    request.next = std::exchange(slice.served, &request);
}

void MidiEngine::executeReset(Slice& slice, const OrvMidiMessage& order, ResetRequest& request)
{
    if (order.isReplacement() && keepNotes)
        replaceRinging(slice, request);
    else {
        if (order.isOrvHardReset())
            hardReset(slice);
        else
            reset(slice);
        if (request.layers) layers.replace(*request.layers);
        if (request.oscillators) oscillators.swap(*request.oscillators);
    }
    if (request.keepNotes) {
        keepNotes = *request.keepNotes;
        liveInputs.getTranslations().forgetPresses();
        pedals.clear();
    }
    remembersAll = keepNotes || layers.now().hasVelocityRange();
    olderMayBeSilent = layers.hasOlder();
}

/// Held notes ring on.
void MidiEngine::replaceRinging(Slice& slice, ResetRequest& request)
{
    if (request.oscillators) {
        request.oscillators->continueFrom(slice, *this, oscillators);
        oscillators.swap(*request.oscillators);
    }
    if (!request.layers) return;
    for (int note = 0; note < NoteCounters::NOTES * 2; ++note) moveUsual(slice, note);
    layers.replaceRinging(slice, *this, presses, *request.layers);
    updateStartTime(slice);
    wakeArpeggios(slice);
}

void MidiEngine::reset(Slice& slice)
{
    noteCounters.clear([&](int output, int channel, int note) {
        const OrvMidiMessage noteOff(
            {.type = MessageType::noteOff, .d1 = note, .d2 = RESET_VELOCITY, .channel = channel, .output = output});
        playMidiInternal(slice, noteOff, false);
    });
    presses.clear();
    usualPresses.clear();
    layers.reset(slice, *this);
    if (watchesNotes) noteWatch.clear();
    startTime = -1;
    wakeArpeggios(slice);
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
