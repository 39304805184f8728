#include "host/run/LiveHost.h"

#include <chrono>
#include <ctime>
#include <filesystem>
#include <stdexcept>
#include <utility>

#include "backend/core/OrvMessageManager.h"
#include "host/run/PortList.h"
#include "host/run/Run.h"
#include "host/session/Session.h"

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
    play = std::make_unique<LivePlay>(*system, ports, event, tell, options.setup);
    if (defaultOutput >= 0) setDefaultOutput(defaultOutput);
    if (options.tempo) play->getOrv().getOrvMessageManager().postChangeTempo({false, *options.tempo}, true);
    join();
    if (options.session != nullptr) options.session->begin(event);
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
        if (options.session != nullptr) options.session->serve(play->getOrv().getOrvMessageManager());
        if (play->serve())
            tell("The JACK server is gone: no MIDI and no sound any more. The engine goes on by its own clock.");
    }
}

void LiveHost::end()
{
    if (options.session != nullptr) options.session->end();
    play->end();
    tellLosses(ports, tell);
}
}  // namespace Host
