#include "host/render/OfflineLoop.h"

#include <algorithm>
#include <new>
#include <string>
#include <thread>

#include "api/DisplayListener.h"
#include "api/OrvFactory.h"
#include "api/OrvMessageManager.h"
#include "host/common/ApplicationName.h"
#include "host/common/SetupFile.h"
#include "host/performance/CommandPost.h"
#include "platform/Path.h"
#include "platform/Thread.h"

namespace Host
{
using Backend::MidiEngine::MidiInputPorts;

namespace
{
constexpr std::int32_t FIRST_PULSE = Backend::OrvIF::FIRST_PULSE;

template <class Ports>
Ports makePorts(const std::string& name, int count)
{
    Ports ports(static_cast<std::size_t>(count));
    for (std::size_t i = 0; i < ports.size(); ++i) ports[i].name = name + " " + std::to_string(i + 1);
    return ports;
}
}  // namespace

OfflineLoop::OfflineLoop(const Settings& wanted)
    : settings(wanted),
      home(wanted.data, wanted.choices),
      orv(Backend::OrvFactory::makeOrv(APPLICATION_NAME, player, false)),
      outputPorts(makePorts<Backend::MidiEngine::MidiOutputPorts>("Out", wanted.outputs))
{
    if (!orv) throw std::bad_alloc();
    if (settings.loads.empty()) orv->getOrvMessageManager().postSetProgramNumber(settings.number);
    orv->setRandomSeed(settings.seed);
    if (settings.display) orv->setDisplayListener(&displayText);
    orv->start();
    auto& commands = orv->getOrvMessageManager();
    commands.sendInitialize();
    commands.sendSetMidiInputPorts(makePorts<MidiInputPorts>("In", settings.inputs));
    commands.sendSetMidiOutputPorts(outputPorts);
    commands.sendEndInitialize();
    waitUntilAtRest(0);
    loadSetups();
}

OfflineLoop::~OfflineLoop()
{
    orv->getOrvMessageManager().sendEnd();
    orv->stop();
}

void OfflineLoop::play(const std::vector<TimedCommand>& commands)
{
    const std::int32_t lastCommand = commands.empty() ? 0 : commands.back().time;
    const std::int32_t last = lastCommand + std::max(settings.tail, settings.slice);
    auto next = commands.begin();
    std::int32_t ppq = 0;
    if (settings.liveInput) playSlice(0, 0);  // nothing is played at once before the first slice
    for (; ppq <= last; ppq += settings.slice) {
        for (; next != commands.end() && next->time <= ppq; ++next) {
            execute(next->command);
            waitUntilAtRest(ppq);
        }
        playSlice(ppq, settings.slice);
        waitUntilAtRest(ppq);
    }
    playReset(ppq);
    waitUntilAtRest(ppq);
    end = ppq;
}

void OfflineLoop::execute(const Command& command)
{
    const auto* const midi = settings.liveInput ? std::get_if<MidiCommand>(&command) : nullptr;
    if (midi == nullptr) {
        post(*orv, command,
             [this](const auto& report) { savedRecords.insert(savedRecords.end(), report.begin(), report.end()); });
    } else if (const auto event = toEvent(*midi); !orv->playMidiInputEvent(event)) {
        orv->getOrvMessageManager().postProcessMidiInputEvent(event);
    }
}

void OfflineLoop::loadSetups()
{
    orv->getOrvMessageManager().postSetProgramNumber(
        settings.number);  // the program of these files, not that of the bank before
    for (const auto& path : settings.loads) {
        postLoad(orv->getOrvMessageManager(), textOf(path));
        waitUntilAtRest(0);
    }
}

void OfflineLoop::playSlice(std::int32_t ppq, std::int32_t length)
{
    player.setPulse(ppq);
    orv->playTimeSlice(FIRST_PULSE + ppq, FIRST_PULSE + ppq + length);
}

/// Waits until the library is at rest and requests nothing of the host. A reset that waits gets a slice of no length.
void OfflineLoop::waitUntilAtRest(std::int32_t ppq)
{
    do {
        while (!orv->isAtRest()) std::this_thread::yield();
        while (orv->isResetWaiting()) {
            playSlice(ppq, 0);
            while (!orv->isAtRest()) std::this_thread::yield();
        }
    } while (applyEnabledOutputs());
}

/// Posts the list with the outputs that were enabled or disabled; false if none was.
bool OfflineLoop::applyEnabledOutputs()
{
    const auto changes = player.takeEnabledOutputs();
    for (const auto& [port, enabled] : changes)
        if (port >= 0 && static_cast<std::size_t>(port) < outputPorts.size())
            outputPorts[static_cast<std::size_t>(port)].enabled = enabled;
    if (!changes.empty()) orv->getOrvMessageManager().postSetMidiOutputPorts(outputPorts);
    return !changes.empty();
}

std::string OfflineLoop::getDisplayText()
{
    orv->resendDisplayText();
    waitUntilAtRest(end);
    return displayText.text;
}

/// Plays the last slice, which begins with a reset. The reset waits for it on a thread of its own.
void OfflineLoop::playReset(std::int32_t ppq)
{
    Thread waiter;
    waiter.start("orvane-reset", [this] { orv->getOrvMessageManager().sendReset(); });
    while (!orv->isResetWaiting()) std::this_thread::yield();
    playSlice(ppq, settings.slice);
    waiter.join();
}
}  // namespace Host
