#include "host/run/LiveHost.h"

#include <chrono>
#include <ctime>
#include <filesystem>
#include <stdexcept>
#include <utility>

#include "api/OrvMessageManager.h"
#include "api/OrvUtils.h"
#include "host/common/ApplicationName.h"
#include "host/run/PortList.h"
#include "host/run/Run.h"
#include "host/system/ClientName.h"
#include "host/system/OpenMidiSystem.h"
#include "platform/Clock.h"
#include "platform/Path.h"

namespace Host
{
namespace
{
constexpr auto SERVE_INTERVAL = std::chrono::milliseconds(100);

/// A file stem in the current folder that contains date and time.
std::string recordStem()
{
    const std::tm local = localTime(std::time(nullptr));
    char name[40];
    std::strftime(name, sizeof name, "record %Y-%m-%d %H.%M.%S", &local);
    std::error_code none;
    return textOf(std::filesystem::current_path(none) / name);
}

Sound soundOf(const Backend::HostSettings& settings)
{
    return {.volume = settings.volume,
            .reverb = settings.reverb,
            .soundFont = pathOf(settings.soundFont),
            .connects = settings.connectsSound};
}

/// Why nothing can pass through the port; empty if it is usable.
std::string whyUnusable(const Port& port)
{
    if (!port.found) return "\"" + port.name + "\" is not available";
    return port.couldNotOpen ? "\"" + port.name + "\" could not be opened" : "";
}

void reportLosses(const Ports& ports, const Report& report)
{
    for (const auto& port : ports.outputs())
        if (port->lossCount() > 0)
            report(port->name + ": " + std::to_string(port->lossCount()) +
                   " messages were lost because the port was too slow");
}
}  // namespace

LiveHost::LiveHost(const RunOptions& runOptions, ProcessSignals& endSignals, Event& wakeUp, Report reportLine)
    : options(runOptions),
      signals(endSignals),
      event(wakeUp),
      report(std::move(reportLine)),
      settings(Backend::HostSettings::load(Backend::OrvUtils::getRegistryKey(APPLICATION_NAME))),
      memory(Backend::OrvUtils::getOrvAppDataDir(), report)
{
    memory.restore(ports, firstOutputName());
    system = openMidiSystem(findClientName(), ports, event, soundOf(settings));
    for (const std::string& line : system->takeNews()) report(line);
}

bool LiveHost::hasOutput() const { return system->name() != "none" || !ports.outputs()[0]->couldNotOpen; }

void LiveHost::start()
{
    const int defaultOutput = options.defaultOutput ? findOutput(ports.outputList(), *options.defaultOutput) : -1;
    const ClockPorts clocks = findClocks();
    reportUnusableClockPorts(clocks);
    followTransport();
    connectPorts();  // first, so that the receiver of the clock gets its start
    play = std::make_unique<LivePlay>(*system, ports, memory, event, report, options.setup, clocks, findOverrides());
    if (defaultOutput >= 0) setDefaultOutput(defaultOutput);
    if (options.tempo) play->getOrv().getOrvMessageManager().postChangeTempo({false, *options.tempo}, true);
    if (options.session != nullptr) options.session->begin(event);
    if (options.status) status = std::make_unique<StatusLine>();
    description = std::string(VERSION) + ": " + system->description() + "\n" +
                  describePorts(ports.inputList(), ports.outputList());
}

Backend::HostOverrides LiveHost::findOverrides() const
{
    return {.client = options.client != FIRST_CLIENT_NAME,
            .clockIn = options.clockIn.has_value(),
            .clockOut = options.clockOut.has_value(),
            .transport = options.transport};
}

std::string LiveHost::findClientName() const
{
    if (findOverrides().client || settings.client.empty()) return options.client;
    if (isClientName(settings.client)) return settings.client;
    report("The name \"" + settings.client + "\" in the setup is none for JACK; the name is \"" + options.client +
           "\".");
    return options.client;
}

ClockPorts LiveHost::findClocks() const
{
    ClockPorts links{.in = settings.clockIn, .out = settings.clockOut};
    if (options.clockIn) links.in = findInput(ports.inputList(), *options.clockIn, "--clock-in");
    if (options.clockOut) links.out = findOutput(ports.outputList(), *options.clockOut, "--clock-out");
    return links;
}

void LiveHost::reportUnusableClockPorts(const ClockPorts& links) const
{
    const auto check = [this](const auto& list, int index, const char* option) {
        if (index < 0 || static_cast<std::size_t>(index) >= list.size()) return;
        if (const std::string reason = whyUnusable(*list[static_cast<std::size_t>(index)]); !reason.empty())
            report(option + (": " + reason));
    };
    check(ports.inputs(), links.in, options.clockIn ? "--clock-in" : "Clock from");
    check(ports.outputs(), links.out, options.clockOut ? "--clock-out" : "Clock to");
}

void LiveHost::followTransport() const
{
    const bool follows = options.transport || settings.followsTransport;
    if (!system->followTransport(follows) && follows)
        report(std::string(options.transport ? "--transport" : "JACK transport") +
               ": there is no JACK server, so there is no transport to follow");
}

/// What the command line says stays.
void LiveHost::applySettings()
{
    const auto changed = play->takeSettings();
    if (!changed) return;
    const auto before = std::exchange(settings, *changed);
    if (soundOf(settings) != soundOf(before)) system->setSound(soundOf(settings));
    if (settings.followsTransport != before.followsTransport) followTransport();
    if (settings.clockIn == before.clockIn && settings.clockOut == before.clockOut) return;
    const ClockPorts clocks = findClocks();
    reportUnusableClockPorts(clocks);
    play->setClocks(clocks);
}

void LiveHost::setDefaultOutput(int output)
{
    const OutputPort& port = *ports.outputs()[static_cast<std::size_t>(output)];
    if (const std::string reason = whyUnusable(port); !reason.empty())
        report("--default-output: " + reason + "; the default output stays as it is");
    else
        play->getOrv().getOrvMessageManager().postChangeDefaultMidiOutput({SelectType::Kind::specific, output});
}

void LiveHost::connectPorts()
{
    for (const auto& [from, to] : parseConnections(options.connections)) try {
            system->connect(from, to);
        } catch (const std::runtime_error& reason) {
            report("--connect " + from + "=" + to + ": " + reason.what());
        }
}

void LiveHost::showDisplay() { play->showDisplay(); }

void LiveHost::playUntil(const std::function<bool()>& isEndRequested)
{
    while (!isEndRequested()) {
        event.waitFor(SERVE_INTERVAL);
        play->updateDisplay();
        if (signals.takeSaveRequest()) play->saveRecord(recordStem());
        if (signals.takeSuspendRequest()) play->suspend([this] { signals.suspend(); });
        if (options.session != nullptr) options.session->serve(play->getOrv().getOrvMessageManager());
        applySettings();
        play->serve();
        showStatus();
    }
}

void LiveHost::showStatus()
{
    if (status && status->isDue()) status->show(describeStatus(play->status(), ports));
}

void LiveHost::end()
{
    if (options.session != nullptr) options.session->end();
    play->end();
    if (status) {
        const auto load = play->wholeLoad();
        status->show("In total " + std::to_string(load.slices) + " slices, " + describeLoad(load));
    }
    reportLosses(ports, report);
}
}  // namespace Host
