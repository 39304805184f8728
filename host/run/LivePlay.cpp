#include "host/run/LivePlay.h"

#include <algorithm>
#include <new>
#include <thread>
#include <utility>

#include "api/Bank.h"
#include "api/OrvFactory.h"
#include "api/OrvMessageManager.h"
#include "host/common/ApplicationName.h"
#include "host/common/Installer.h"
#include "host/performance/CommandPost.h"

namespace Host
{
using namespace std::chrono_literals;
using Backend::RetroRecord::SavedRecord;
using Backend::RetroRecord::SaveReport;

namespace
{
constexpr auto LONGEST_WAIT_FOR_REST = 2s;
constexpr auto LONGEST_WAIT_FOR_DELIVERY = 1s;
constexpr int SLICES_FOR_INPUTS_TO_END = 2;
constexpr auto PAUSE_BETWEEN_WARNINGS = 10s;

std::unique_ptr<Backend::OrvIF> createOrv(Player& player)
{
    auto orv = Backend::OrvFactory::makeOrv(APPLICATION_NAME, player, true);
    if (!orv) throw std::bad_alloc();
    return orv;
}

template <class Condition>
void waitUntil(Condition&& condition, std::chrono::milliseconds longest)
{
    const auto deadline = std::chrono::steady_clock::now() + longest;
    while (!condition() && std::chrono::steady_clock::now() < deadline) std::this_thread::sleep_for(1ms);
}
}  // namespace

LivePlay::LivePlay(MidiSystem& midiSystem, Ports& allPorts, PortMemory& portMemory, Event& requests, Report reportLine,
                   const Setup& setup, const ClockPorts& links, const Backend::HostOverrides& overrides)
    : system(midiSystem),
      ports(allPorts),
      requested(requests),
      player(ports, requests),
      orv(createOrv(player)),
      slices([backend = orv.get()](std::int32_t from, std::int32_t to) { backend->playTimeSlice(from, to); },
             [backend = orv.get()] { backend->getOrvMessageManager().sendReset(); }),
      clock(slices, player, [this] { system.deliver(); }),
      memory(portMemory),
      report(std::move(reportLine))
{
    start(setup, links, overrides);
}

LivePlay::~LivePlay() { end(); }

void LivePlay::start(const Setup& setup, const ClockPorts& links, const Backend::HostOverrides& overrides)
{
    slices.measureInto(&load);
    clock.setTryRest([backend = orv.get()] { return backend->tryRest(); });
    installIfNeeded();
    orv->getOrvMessageManager().postKeepSetPosition(true);
    if (setup.loads.empty()) orv->getOrvMessageManager().postSetProgramNumber(setup.number);
    if (setup.continuesLast) orv->getOrvMessageManager().postContinueLast(setup.isPlain());
    orv->useHostSettings({.changed =
                              [this](const Backend::HostSettings& settings) {
                                  const MutexLock lock(settingsLock);
                                  newSettings = settings;
                                  requested.set();
                              },
                          .overrides = overrides});
    orv->requestRealTime();
    orv->start();
    auto& backend = orv->getOrvMessageManager();
    backend.sendInitialize();
    const Backend::HostStart stored = backend.sendGetHostStart();
    if (setup.loads.empty() && stored.bank.empty())
        report("\"" + stored.defaultBank + "\": no default bank with a program, none is loaded");
    applyStoredChoices(stored);
    backend.sendSetMidiInputPorts(ports.inputList());
    backend.sendSetMidiOutputPorts(ports.outputList());
    storeNewChoices();
    backend.sendEndInitialize();
    if (!setup.isPlain())
        backend.postSetProgramNumber(setup.number);  // the program of these files, not that of the bank before
    for (const std::string& file : setup.loads) postLoad(backend, file);
    if (!setup.program.empty()) backend.postLoadProgramFromString(setup.program, setup.number);
    setClocks(links);
    system.startClock(clock);
    orv->startJoysticks();
    system.listen(arrivals);
}

std::optional<Backend::HostSettings> LivePlay::takeSettings()
{
    const MutexLock lock(settingsLock);
    return std::exchange(newSettings, std::nullopt);
}

void LivePlay::setClocks(const ClockPorts& links)
{
    const auto isThere = [](int index, const auto& list) {
        return index >= 0 && static_cast<std::size_t>(index) < list.size();
    };
    const bool sends = isThere(links.out, ports.outputs());
    player.setClockIn(isThere(links.in, ports.inputs()) ? links.in : -1);
    player.setClockOut(sends ? links.out : -1);
    clock.setClockOut(sends ? ports.outputs()[static_cast<std::size_t>(links.out)].get() : nullptr);
}

// --- commands

void LivePlay::execute(const Command& command)
{
    const MutexLock notSuspended(executing);
    post(*orv, command, [this](const auto& saved) { reportSaved(saved); });
}

void LivePlay::saveRecord(const std::string& stem)
{
    orv->saveRetroRecordFor(stem, [this](const auto& saved) { reportSaved(saved); });
}

void LivePlay::reportSaved(const SaveReport& saved) const
{
    for (const auto& [file, error] : saved) {
        if (error)
            report(file + ": the record was not saved, it goes on: " + error.message());
        else if (!file.empty())
            report("saved " + file);
    }
    if (std::ranges::all_of(saved, [](const SavedRecord& record) { return record == SavedRecord(); }))
        report("nothing was played, so no record was saved");
}

// --- the display

void LivePlay::showDisplay()
{
    showsDisplay = true;
    orv->setDisplayListener(&display);
}

void LivePlay::updateDisplay()
{
    if (showsDisplay) orv->updateDisplayListener();
}

// --- ports

void LivePlay::serve()
{
    const bool changed = system.refresh();
    serveInputs();
    serveOutputs();
    serveTempo();
    releaseCutInputs();
    if (changed) publishPorts();
    reportNews();
    reportFloods();
}

void LivePlay::releaseCutInputs()
{
    for (const std::size_t index : system.takeDisconnectedInputs())
        orv->getOrvMessageManager().postReleaseMidiInput(static_cast<int>(index));
}

void LivePlay::publishPorts()
{
    orv->getOrvMessageManager().postSetMidiInputPorts(ports.inputList());
    orv->getOrvMessageManager().postSetMidiOutputPorts(ports.outputList());
    storeNewChoices();
}

void LivePlay::reportNews()
{
    for (const std::string& line : system.takeNews()) report(line);
    if (ports.leftOut() > reportedLeftOut)
        report("There are more MIDI ports than the " + std::to_string(Ports::MOST) + " that can be used each way; " +
               std::to_string(ports.leftOut()) + " are left out.");
    reportedLeftOut = ports.leftOut();
}

void LivePlay::reportFloods()
{
    const auto now = std::chrono::steady_clock::now();
    for (std::size_t index = 0; index < ports.inputs().size(); ++index) {
        Flood& flood = floods[index];
        const std::uint64_t limited = ports.inputs()[index]->limit.limitedCount();
        const bool floodsNow = std::exchange(flood.limited, limited) != limited;
        const bool wasReported =
            flood.reported.time_since_epoch().count() != 0 && now - flood.reported < PAUSE_BETWEEN_WARNINGS;
        if (!floodsNow || wasReported) continue;
        flood.reported = now;
        report("\"" + ports.inputs()[index]->name + "\": more than " + std::to_string(EventLimit::PER_SECOND) +
               " events a second; the rest is left out. Is an output connected to this input?");
    }
}

// --- status

Status LivePlay::status()
{
    Status status;
    status.system = system.status();
    status.tempo = player.getTempo();
    const auto counts = load.counts();
    status.load = SliceLoad::summarise(std::exchange(loadBefore, counts), counts);
    status.lateSlices = load.lateCount();
    status.realTime = describeRealTime();
    status.longestHold = std::chrono::nanoseconds(orv->takeLongestHold());
    return status;
}

Gui::HostStatus LivePlay::windowStatus()
{
    return {.system = system.status(),
            .trouble = system.trouble(),
            .activeInputs = arrivals.takeActive(),
            .pulse = slices.getPulse()};
}

std::string LivePlay::describeRealTime() const
{
    const RealTimeAnswer clockAnswer =
        clock.runsOnItsThread() ? realTimeAnswer(RealTimeStep::clock) : system.clockPriority();
    std::string who;
    const auto add = [&](RealTimeAnswer answer, const char* name) {
        if (answer == RealTimeAnswer::granted) who += (who.empty() ? "" : ", ") + std::string(name);
    };
    add(clockAnswer, "clock");
    add(realTimeAnswer(RealTimeStep::backend), "backend");
    add(realTimeAnswer(RealTimeStep::commands), "commands");
    return who.empty() ? "none" : who;
}

// --- choices

// A port without a stored choice is enabled.
void LivePlay::applyStoredChoices(const Backend::HostStart& stored)
{
    const auto& inputs = stored.enabledInputs;
    const auto& outputs = stored.enabledOutputs;
    inputChoices = inputs.size();
    outputChoices = outputs.size();
    for (std::size_t index = 0; index < std::min(inputs.size(), ports.inputs().size()); ++index) {
        ports.inputs()[index]->wanted.store(inputs[index]);
        if (!inputs[index]) system.enableInput(index, false);
    }
    for (std::size_t index = 0; index < std::min(outputs.size(), ports.outputs().size()); ++index) {
        ports.outputs()[index]->wanted.store(outputs[index]);
        if (!outputs[index]) system.enableOutput(index, false);
    }
}

// For every port up to the last one: storing the choice of one number stores one for each lower number too.
void LivePlay::storeNewChoices()
{
    auto& backend = orv->getOrvMessageManager();
    for (; inputChoices < ports.inputs().size(); ++inputChoices)
        backend.postEnableMidiInput(static_cast<int>(inputChoices), ports.inputs()[inputChoices]->wanted.load());
    for (; outputChoices < ports.outputs().size(); ++outputChoices)
        backend.postEnableMidiOutput(static_cast<int>(outputChoices), ports.outputs()[outputChoices]->wanted.load());
    memory.save(ports);
}

// The backend has changed the input already; it gets a new list only if the device could not be opened.
void LivePlay::serveInputs()
{
    bool changed = false;
    for (std::size_t index = 0; index < ports.inputs().size(); ++index) {
        InputPort& port = *ports.inputs()[index];
        const bool wanted = port.wanted.load();
        if (wanted == port.enabled) continue;
        const bool couldNotOpen = port.couldNotOpen;
        system.enableInput(index, wanted);
        changed = changed || port.couldNotOpen != couldNotOpen;
    }
    if (changed) orv->getOrvMessageManager().postSetMidiInputPorts(ports.inputList());
}

void LivePlay::serveOutputs()
{
    if (!player.takeOutputRequest()) return;
    for (std::size_t index = 0; index < ports.outputs().size(); ++index) {
        const OutputPort& port = *ports.outputs()[index];
        const bool wanted = port.wanted.load();
        if (wanted != port.enabled) system.enableOutput(index, wanted);
    }
    orv->getOrvMessageManager().postSetMidiOutputPorts(ports.outputList());
}

void LivePlay::serveTempo()
{
    if (const int bpm = player.takeExternalTempo(); bpm > 0)
        orv->getOrvMessageManager().postChangeTempo({false, bpm}, true);
}

// --- the end

void LivePlay::end()
{
    if (ended) return;
    ended = true;
    system.stopListening();
    endNotes();
    updateDisplay();  // with the last note-offs
    orv->getOrvMessageManager().sendEnd();
    clock.stop();
    orv->stop();
    system.close();
}

// In the list only: the user's stored choice stays. When the backend is at rest, the note-offs of the notes that inputs
// held are queued for the slices.
void LivePlay::switchInputsOff()
{
    orv->stopJoysticks();
    auto inputs = ports.inputList();
    for (auto& input : inputs) input.enabled = false;
    orv->getOrvMessageManager().sendSetMidiInputPorts(inputs);
    waitForRest();
}

/// Inputs off, two slices for what they released, a reset, after which no note begins.
void LivePlay::endNotes()
{
    switchInputsOff();
    clock.waitForSlices(SLICES_FOR_INPUTS_TO_END);
    player.acceptNoteOns(false);  // the window may still post keys
    orv->getOrvMessageManager().sendReset();
    waitForRest();
}

void LivePlay::suspend(const std::function<void()>& stopProcess)
{
    const MutexLock noCommand(executing);
    endNotes();
    waitUntil([this] { return soundingNotes(ports) == 0; }, LONGEST_WAIT_FOR_DELIVERY);
    system.waitUntilRead();  // a graph that waits for its clients stands still from here on
    stopProcess();
    orv->getOrvMessageManager().sendReset();  // the engine forgets the note-ons that were dropped
    player.acceptNoteOns(true);
    orv->getOrvMessageManager().postSetMidiInputPorts(ports.inputList());
    orv->startJoysticks();
}

void LivePlay::waitForRest()
{
    waitUntil([this] { return orv->isAtRest(); }, LONGEST_WAIT_FOR_REST);
}
}  // namespace Host
