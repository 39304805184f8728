#include "host/render/OfflineLoop.h"

#include <algorithm>
#include <new>
#include <string>
#include <thread>

#include "api/OrvFactory.h"
#include "api/OrvMessageManager.h"
#include "backend/display/DisplayListener.h"
#include "backend/display/DisplayMessageManager.h"
#include "backend/engine/MidiEngine.h"
#include "backend/messages/GuiMessages.h"
#include "backend/model/Program.h"
#include "host/common/ApplicationName.h"
#include "host/common/SetupFile.h"
#include "host/performance/CommandPost.h"
#include "platform/Thread.h"

namespace Host
{
using Backend::MidiEngine::MidiInputPorts;
namespace GuiMessage = Backend::GuiMessage;

namespace
{
constexpr std::int32_t FIRST_PULSE = Backend::MidiEngine::MidiEngine::FIRST_PULSE;
constexpr std::size_t ROOM_FOR_EVENTS = 1024;

/// Takes the display's text when it is sent.
struct TextReceiver final : Backend::Display::DisplayListener {
    std::string text;
    void addText(const char*) override {}
    void setText(const char* whole) override { text = whole; }
};

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
      window(std::make_shared<MessageQueue>(ROOM_FOR_EVENTS)),
      orv(Backend::OrvFactory::createOrv(APPLICATION_NAME, player, false)),
      outputPorts(makePorts<Backend::MidiEngine::MidiOutputPorts>("Out", wanted.outputs))
{
    if (!orv) throw std::bad_alloc();
    if (settings.loads.empty()) orv->getProgram().number = settings.number;
    orv->setRandomSeed(settings.seed);
    if (settings.display) orv->setGuiWindowHandle(WindowHandle(window));
    orv->start();
    auto& commands = orv->getOrvMessageManager();
    commands.sendInitialize();
    commands.sendSetMidiInputPorts(makePorts<MidiInputPorts>("In", settings.inputs));
    commands.sendSetMidiOutputPorts(outputPorts);
    commands.sendEndInitialize();
    rest(0);
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
    for (; ppq <= last; ppq += settings.slice) {
        for (; next != commands.end() && next->time <= ppq; ++next) {
            post(*orv, next->command, WindowHandle(window));
            rest(ppq);
        }
        playSlice(ppq, settings.slice);
        rest(ppq);
    }
    resetIn(ppq);
    rest(ppq);
    end = ppq;
}

void OfflineLoop::loadSetups()
{
    orv->getProgram().number = settings.number;  // of these alone: what another bank has there would be heard
    for (const auto& path : settings.loads) {
        postLoad(orv->getOrvMessageManager(), path.string());
        rest(0);
    }
}

void OfflineLoop::playSlice(std::int32_t ppq, std::int32_t length)
{
    player.setPulse(ppq);
    orv->playTimeSlice(FIRST_PULSE + ppq, FIRST_PULSE + ppq + length);
}

/// Waits until the library has nothing left to do. A reset that it waits in is served by a slice of no length, and the
/// host's own answers count as something to do.
void OfflineLoop::rest(std::int32_t ppq)
{
    do {
        while (!orv->isAtRest()) std::this_thread::yield();
        while (orv->isResetWaiting()) {
            playSlice(ppq, 0);
            while (!orv->isAtRest()) std::this_thread::yield();
        }
    } while (applyEnabledOutputs() || processWindowMessages());
}

/// The refreshed list for what the user enabled or disabled; false if there was nothing of that.
bool OfflineLoop::applyEnabledOutputs()
{
    const auto wishes = player.takeEnabledOutputs();
    for (const auto& [port, enabled] : wishes)
        if (port >= 0 && static_cast<std::size_t>(port) < outputPorts.size())
            outputPorts[static_cast<std::size_t>(port)].enabled = enabled;
    if (!wishes.empty()) orv->getOrvMessageManager().postSetMidiOutputPorts(outputPorts);
    return !wishes.empty();
}

/// What a window does with what it is told; false if it was told nothing.
bool OfflineLoop::processWindowMessages()
{
    bool any = false;
    while (window->handleNext([&](Message& message) {
        if (message.number == GuiMessage::MIDI_OUTPUT_EVENT)
            orv->displayMidiOutputEvent({message.wparam, message.lparam});
        if (auto* report = message.payload.get<Backend::RetroRecord::SaveReport>())
            savedRecords.insert(savedRecords.end(), report->begin(), report->end());
    }))
        any = true;
    return any;
}

std::string OfflineLoop::getDisplayText()
{
    auto& display = orv->getDisplayMessageManager();
    TextReceiver taker;
    display.setListener(&taker);
    display.postResendText();
    display.setListener(nullptr);
    rest(end);
    return taker.text;
}

/// The last slice begins with a reset, which waits for it on a thread of its own.
void OfflineLoop::resetIn(std::int32_t ppq)
{
    Thread waiter;
    waiter.start("orvane-reset", [this] { orv->getMidiEngineMessageManager().sendReset(); });
    while (!orv->isResetWaiting()) std::this_thread::yield();
    playSlice(ppq, settings.slice);
    waiter.join();
}
}  // namespace Host
