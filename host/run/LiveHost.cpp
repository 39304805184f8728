#include "host/run/LiveHost.h"

#include <chrono>
#include <ctime>
#include <filesystem>
#include <stdexcept>
#include <utility>

#include "backend/core/OrvMessageManager.h"
#include "host/run/PortList.h"
#include "host/run/Run.h"

namespace Host
{
namespace
{
constexpr auto DISPLAY_UPDATE = std::chrono::milliseconds(100);

/// A file stem in the current folder that names the moment.
std::string recordStem()
{
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    char name[40];
    std::strftime(name, sizeof name, "record %Y-%m-%d %H.%M.%S", &local);
    std::error_code none;
    return (std::filesystem::current_path(none) / name).string();
}

void tellLosses(const Ports& ports, const Tell& tell)
{
    for (const auto& port : ports.outputs())
        if (port->lossCount() > 0)
            tell(port->name + ": " + std::to_string(port->lossCount()) + " messages were lost, the port was too slow");
}
}  // namespace

LiveHost::LiveHost(const RunOptions& runOptions, EndSignals& endSignals, Event& wakeUp, Tell tellUser)
    : options(runOptions),
      signals(endSignals),
      event(wakeUp),
      tell(std::move(tellUser)),
      system(openMidiSystem(options.client, ports, event))
{
    for (const std::string& complaint : system->complaints) tell(complaint);
}

bool LiveHost::isAnythingHeard() const { return system->name() != "none" || !ports.outputs()[0]->couldNotOpen; }

void LiveHost::start()
{
    const int defaultOutput = options.defaultOutput ? findOutput(ports.outputList(), *options.defaultOutput) : -1;
    const ClockLinks clocks = findClocks();
    tellSilentClocks(clocks);
    if (options.transport) followTransport();
    join();  // first: who is to hear the clock hears its start
    play = std::make_unique<LivePlay>(*system, ports, event, tell, options.setup, clocks);
    if (defaultOutput >= 0) setDefaultOutput(defaultOutput);
    if (options.tempo) play->getOrv().getOrvMessageManager().postChangeTempo({false, *options.tempo}, true);
}

ClockLinks LiveHost::findClocks() const
{
    ClockLinks links;
    if (options.clockIn) links.in = findInput(ports.inputList(), *options.clockIn, "--clock-in");
    if (options.clockOut) links.out = findOutput(ports.outputList(), *options.clockOut, "--clock-out");
    return links;
}

void LiveHost::tellSilentClocks(const ClockLinks& links) const
{
    const auto check = [this](const Port& port, const char* option) {
        if (port.couldNotOpen) tell(std::string(option) + ": \"" + port.name + "\" could not be opened");
    };
    if (links.in >= 0) check(*ports.inputs()[static_cast<std::size_t>(links.in)], "--clock-in");
    if (links.out >= 0) check(*ports.outputs()[static_cast<std::size_t>(links.out)], "--clock-out");
}

void LiveHost::followTransport()
{
    if (!system->followTransport()) tell("--transport: there is no JACK server, so no transport to follow");
}

void LiveHost::setDefaultOutput(int output)
{
    const OutputPort& port = *ports.outputs()[static_cast<std::size_t>(output)];
    if (port.couldNotOpen)
        tell("--default-output: \"" + port.name + "\" could not be opened; the default output stays as it is");
    else
        play->getOrv().getOrvMessageManager().postChangeDefaultMidiOutput({SelectType::Kind::specific, output});
}

void LiveHost::join()
{
    for (const auto& [from, to] : parseConnections(options.connections)) try {
            system->connect(from, to);
        } catch (const std::runtime_error& reason) {
            tell("--connect " + from + "=" + to + ": " + reason.what());
        }
}

std::string LiveHost::describe() const
{
    return std::string(VERSION) + ": " + system->description() + "\n" +
           describePorts(ports.inputList(), ports.outputList());
}

void LiveHost::showDisplay()
{
    printsDisplay = true;
    play->showDisplay();
}

void LiveHost::waitForEvent()
{
    if (printsDisplay)
        event.waitFor(DISPLAY_UPDATE);
    else
        event.wait();
}

void LiveHost::playUntil(const std::function<bool()>& isEndWanted)
{
    while (!isEndWanted()) {
        waitForEvent();
        play->updateDisplay();
        if (signals.takeSaveWish()) play->saveRecord(recordStem());
        if (play->serve())
            tell("The JACK server is gone: no MIDI and no sound any more. The engine goes on by its own clock.");
    }
}

void LiveHost::end()
{
    play->end();
    tellLosses(ports, tell);
}
}  // namespace Host
