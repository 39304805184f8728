#include "backend/engine/MidiEngine.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>

#include "backend/messages/GuiMessages.h"

namespace Backend::MidiEngine
{
namespace
{
constexpr std::size_t ROOM_FOR_EVENTS = 1024;
}

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
    constexpr double LAST_PULSE = std::numeric_limits<std::int32_t>::max();
    const double pulse = std::floor(tempo / 60000.0 * milliseconds * PULSES_PER_QUARTER + 0.5) + FIRST_PULSE;
    return pulse >= 0 ? static_cast<std::int32_t>(std::min(pulse, LAST_PULSE)) : 0;
}

// Flat, because every event that takes this way costs one call.
[[gnu::flatten]] void MidiEngine::appendTimedEvent(const OrvMidiMessage& event)
{
    const Locked lock(criticalSection);
    timedEvents.push_back(event);
    endRest();
}

void MidiEngine::setMidiInputPorts(MidiInputPorts ports)
{
    LiveInputs::Held room;
    for (std::size_t input = 0; input < std::min(ports.size(), room.size()); ++input)
        room[input] = std::make_unique<HeldNotes>();
    const CommandLock lock(criticalSection, longestHold);
    liveInputs.setPorts(ports, room);
}

void MidiEngine::setProgramChangeInput(const ProgramChangeInput& input)
{
    const CommandLock lock(criticalSection, longestHold);
    liveInputs.setProgramChangeInput(input);
}

void MidiEngine::setMidiTranslations(InputTranslations::Shared translations)
{
    InputTranslations::Room gone;  // freed outside the lock
    const CommandLock lock(criticalSection, longestHold);
    liveInputs.getTranslations().set(std::move(translations), gone);
}

std::vector<InputTranslations::Shared> MidiEngine::takeMidiTranslations(const OrvMidiMessage& received,
                                                                        const InputTranslations::Shared& now)
{
    std::vector<InputTranslations::Shared> found;
    InputTranslations::Room gone;  // freed outside the lock
    const CommandLock lock(criticalSection, longestHold);
    if (keepNotes) {
        InputTranslations& translations = liveInputs.getTranslations();
        translations.release(received, [&](const InputTranslations::Shared& map) { found.push_back(map); });
        translations.press(received, now, gone);
    }
    if (found.empty()) found.push_back(now);
    return found;
}

void MidiEngine::followMidiInput(const OrvMidiMessage& event)
{
    const CommandLock lock(criticalSection, longestHold);
    liveInputs.follow(event);
}

HeldNotes MidiEngine::takeHeldNotes(int input)
{
    auto notes = std::make_unique<HeldNotes>();
    {
        const CommandLock lock(criticalSection, longestHold);
        deferred.add(input);
        liveInputs.swapHeld(static_cast<std::size_t>(input), notes);
    }
    return *notes;
}

void MidiEngine::settleMidiInput(int input) { appendTimedEvent(OrvMidiMessage::createInputMarker(input)); }

void MidiEngine::setMidiOutputPorts(MidiOutputPorts ports)
{
    std::array<bool, 256> enabled{};
    for (int output = 0; output < NoteCounters::OUTPUTS; ++output)
        enabled[static_cast<unsigned>(output)] = isEnabled(ports, output);
    const auto isGone = [&](int output) { return !enabled[static_cast<unsigned>(output)]; };

    const CommandLock lock(criticalSection, longestHold);
    midiOutputPorts.swap(ports);
    bool anyEnds = false;
    for (int output = 0; output < NoteCounters::OUTPUTS; ++output) {
        if (!isGone(output)) continue;
        anyEnds |= enabledOutputs[static_cast<unsigned>(output)];
        noteCounters.clearOutput(output);
    }
    enabledOutputs = enabled;
    if (anyEnds && watchesNotes) noteWatch.clear();
    presses.forgetOutputs(isGone);
    directOutputs.forget(isGone);
    pedals.forgetOutputs(isGone);
    layers.forEach([&](Layers::EngineLayer& layer) { layer.forgetOutputs(isGone); });
}

void MidiEngine::enableMidiInput(int port, bool enabled)
{
    const CommandLock lock(criticalSection, longestHold);
    midiPlayer.enableMidiInput(port, enabled);
}

void MidiEngine::enableMidiOutput(int port, bool enabled)
{
    const CommandLock lock(criticalSection, longestHold);
    midiPlayer.enableMidiOutput(port, enabled);
}

void MidiEngine::setDefaultMidiOutput(int port)
{
    const bool isOutput = port >= 0 && port < NoteCounters::OUTPUTS;
    const CommandLock lock(criticalSection, longestHold);
    defaultMidiOutput = isOutput ? port : OrvMidiMessage::DEFAULT_OUTPUT;
}

void MidiEngine::setMidiThru(bool on)
{
    const CommandLock lock(criticalSection, longestHold);
    midiThru = on;
}

void MidiEngine::setTempo(int bpm)
{
    const CommandLock lock(criticalSection, longestHold);
    midiPlayer.setTempo(bpm);
}

void MidiEngine::setTempoSource(int source)
{
    const CommandLock lock(criticalSection, longestHold);
    keptTempoSource = source;
    // During a reset the clock is internal; the new source is set at the end of the reset.
    if (resetsUnderWay == 0) midiPlayer.setTempoSource(static_cast<char>(source));
}

void MidiEngine::sendSequenceSteps()
{
    constexpr std::size_t ROOM = 256;  // layers beyond it are not shown
    std::vector<int> steps;
    steps.reserve(ROOM);
    WindowHandle window;
    {
        const CommandLock lock(criticalSection, longestHold);
        window = guiWindow;
        for (const auto& layer : layers.now().all().first(std::min(ROOM, layers.now().all().size())))
            steps.push_back(layer->getSequenceStep());
    }
    notify(window, GuiMessage::SEQUENCE_STEPS, steps);
}

void MidiEngine::setGuiWindowHandle(WindowHandle window)
{
    const CommandLock lock(criticalSection, longestHold);
    std::swap(guiWindow, window);
    updateObserved();
}

void MidiEngine::setEventRecorder(EventRecorder* newRecorder)
{
    const CommandLock lock(criticalSection, longestHold);
    recorder = newRecorder;
    updateObserved();
}

void MidiEngine::setEventLog(EventLog* newLog)
{
    const CommandLock lock(criticalSection, longestHold);
    eventLog = newLog;
    updateObserved();
}

void MidiEngine::setInputLog(EventLog* newLog)
{
    const CommandLock lock(criticalSection, longestHold);
    inputLog = newLog;
}

void MidiEngine::updateObserved()
{
    isObserved = guiWindow || recorder != nullptr || eventLog != nullptr || watchesNotes;
}

/// No slice counts while the counters are cleared.
void MidiEngine::watchNotes(bool on)
{
    const auto set = [this](bool isOn) {
        const CommandLock lock(criticalSection, longestHold);
        watchesNotes = isOn;
        updateObserved();
    };
    set(false);
    noteWatch.clear();
    if (on) set(true);
}

void MidiEngine::setControlUpdates(Controls::ControlUpdates* updates)
{
    const CommandLock lock(criticalSection, longestHold);
    controlUpdates = updates;
}

void MidiEngine::setZoneMap(std::vector<Zones::Zone> newZones)
{
    const CommandLock lock(criticalSection, longestHold);
    zones.set(newZones);
}

void MidiEngine::setZone(Zones::Zone zone)
{
    const CommandLock lock(criticalSection, longestHold);
    zones.setTranspose(zone);
}

void MidiEngine::setOscPlaying(Oscillators::OscId id, bool playing)
{
    Slice slice;
    {
        const CommandLock lock(criticalSection, longestHold);
        Oscillators::EngineOscillator* oscillator = oscillators.find(id);
        if (oscillator == nullptr) return;
        if (const std::int32_t stopValue = oscillator->getStopValue(); stopValue >= 0) {
            if (oscillator->hasEvent() && playing) oscillators.playStopValueFirst(*oscillator);
            if (oscillator->hasEvent() && !playing) timedEvents.push_back(oscillator->makeEvent(stopValue));
            showOscValue(slice, id, stopValue);
        }
        oscillators.setPlaying(*oscillator, playing);
        endRest();
    }
    finish(slice);
}

void MidiEngine::setOscSpeed(Oscillators::OscId id, int speed)
{
    const CommandLock lock(criticalSection, longestHold);
    if (auto* oscillator = oscillators.find(id)) oscillator->setSpeed(speed);
}

void MidiEngine::setRandomSeed(std::uint32_t seed)
{
    const CommandLock lock(criticalSection, longestHold);
    random = RandomSource(seed);
}
}  // namespace Backend::MidiEngine
