#include "host/run/LivePlay.h"

#include <new>
#include <thread>

#include "backend/core/DisplayMessageManager.h"
#include "backend/core/OrvFactory.h"
#include "backend/core/OrvMessageManager.h"
#include "backend/layers/RetroRecordManager.h"
#include "backend/midi/MidiEngineMessageManager.h"
#include "backend/persistence/Program.h"
#include "host/Installer.h"
#include "host/performance/CommandPost.h"
#include "host/run/RunOptions.h"

namespace Host
{
using namespace std::chrono_literals;
using Backend::MidiEngine::OrvMidiMessage;

namespace
{
constexpr auto LONGEST_WAIT_FOR_REST = 2s;
constexpr int SLICES_FOR_INPUTS_TO_END = 2;

std::unique_ptr<Backend::OrvIF> createOrv(Player& player)
{
    std::unique_ptr<Backend::OrvIF> orv(Backend::OrvFactory::createOrv(APPLICATION_NAME, player, true));
    if (!orv) throw std::bad_alloc();
    return orv;
}
}  // namespace

LivePlay::LivePlay(MidiSystem& midiSystem, Ports& allPorts, Event& wishes, Tell tell, const Setup& setup)
    : system(midiSystem),
      ports(allPorts),
      player(ports, wishes),
      window(std::move(tell)),
      orv(createOrv(player)),
      slices([backend = orv.get()](std::int32_t from, std::int32_t to) { backend->playTimeSlice(from, to); },
             [backend = orv.get()] { backend->getMidiEngineMessageManager().sendReset(); }),
      clock(slices, player, [this] { system.deliver(); })
{
    start(setup);
}

LivePlay::~LivePlay() { end(); }

void LivePlay::start(const Setup& setup)
{
    installIfNeeded();
    if (setup.loads.empty()) orv->getProgram().number = setup.number;
    orv->start();
    auto& backend = orv->getOrvMessageManager();
    backend.sendInitialize();
    backend.sendSetMidiInputPorts(ports.inputList());
    backend.sendSetMidiOutputPorts(ports.outputList());
    backend.sendEndInitialize();
    orv->getProgram().number = setup.number;  // of these alone: what another bank has there would be heard
    for (const std::string& file : setup.loads) postLoad(backend, file);
    if (!setup.program.empty()) backend.postLoadProgramFromString(setup.program, setup.number);
    system.startClock(clock);
    orv->startJoysticks();
    system.listen([&backend](const OrvMidiMessage& event) { backend.postProcessMidiInputEvent(event); });
}

// --- commands

void LivePlay::carryOut(const Command& command) { post(*orv, command, window.getHandle()); }

void LivePlay::saveRecord(const std::string& stem) { orv->getRetroRecordManager().save(stem, window.getHandle()); }

// --- the display

void LivePlay::showDisplay()
{
    showsDisplay = true;
    orv->getDisplayMessageManager().setListener(&display);
    window.showEventsOf(*orv);
}

void LivePlay::updateDisplay()
{
    if (showsDisplay) orv->getDisplayMessageManager().postUpdateListener();
}

// --- ports

bool LivePlay::serve()
{
    serveInputs();
    serveOutputs();
    if (!system.hasDied() || toldOfDeath) return false;
    toldOfDeath = true;
    system.markGone();
    orv->getOrvMessageManager().postSetMidiInputPorts(ports.inputList());
    orv->getOrvMessageManager().postSetMidiOutputPorts(ports.outputList());
    return true;
}

// The backend has switched the input already; it hears from us only if the device refuses.
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
    if (!player.takeOutputWish()) return;
    for (std::size_t index = 0; index < ports.outputs().size(); ++index) {
        const OutputPort& port = *ports.outputs()[index];
        const bool wanted = port.wanted.load();
        if (wanted != port.enabled) system.enableOutput(index, wanted);
    }
    orv->getOrvMessageManager().postSetMidiOutputPorts(ports.outputList());
}

// --- the end

void LivePlay::end()
{
    if (ended) return;
    ended = true;
    clock.neverStall();
    switchInputsOff();
    clock.waitForSlices(SLICES_FOR_INPUTS_TO_END);
    orv->getMidiEngineMessageManager().sendReset();
    waitForRest();
    updateDisplay();  // with the last note offs
    orv->getOrvMessageManager().sendEnd();
    clock.stop();
    orv->stop();
    window.close();
    system.close();
}

// The list alone, not the user's choice, which is stored. What the backend then releases of itself is on its way to
// the slices once it rests.
void LivePlay::switchInputsOff()
{
    system.stopListening();
    orv->stopJoysticks();
    auto inputs = ports.inputList();
    for (auto& input : inputs) input.enabled = false;
    orv->getOrvMessageManager().sendSetMidiInputPorts(inputs);
    waitForRest();
}

void LivePlay::waitForRest()
{
    const auto isAtRest = [this] { return orv->isAtRest() && window.isAtRest(); };
    const auto giveUp = std::chrono::steady_clock::now() + LONGEST_WAIT_FOR_REST;
    while (!(isAtRest() && isAtRest()) && std::chrono::steady_clock::now() < giveUp) std::this_thread::sleep_for(1ms);
}
}  // namespace Host
