#include "host/run/Run.h"

#include <iostream>
#include <memory>

#include "api/OrvUtils.h"
#include "host/run/CommandReader.h"
#include "host/run/LiveHost.h"
#include "host/run/PortList.h"
#include "host/system/OpenMidiSystem.h"
#include "host/terminal/LineOutput.h"
#include "host/terminal/RawTerminal.h"
#include "host/terminal/StandardError.h"
#include "host/terminal/TerminalKeyboard.h"

namespace Host
{
namespace
{
constexpr int STANDARD_INPUT = 0;

void playFromKeys(ProcessSignals& signals, LiveHost& host)
{
    const TerminalKeyboard keyboard(STANDARD_INPUT, [&](const Command& command) { host.getPlay().execute(command); });
    host.playUntil([&] { return signals.isEndRequested(); });
}

void playFromCommands(ProcessSignals& signals, LiveHost& host)
{
    const CommandReader reader(
        STANDARD_INPUT, "standard input", [&](const Command& command) { host.getPlay().execute(command); },
        reportOnStandardError);
    host.playUntil([&] { return signals.isEndRequested(); });
}
}  // namespace

int run(const RunOptions& options, const std::function<int()>& otherwise)
{
    checkRunOptions(options);
    Event event;
    ProcessSignals signals(event);
    const auto terminal = options.keys ? std::make_unique<RawTerminal>(STANDARD_INPUT) : nullptr;
    LiveHost host(options, signals, event, reportOnStandardError);
    if (!host.hasOutput()) {
        if (otherwise) return otherwise();
        reportOnStandardError(
            "There is no MIDI system and no sound output, so nothing sounds. Commands are executed all the same.");
    }
    host.start();
    standardOutput().write(host.describe() +
                           (options.keys ? "The keys of this terminal play" : "Commands are read from standard input") +
                           ". Ctrl+C ends every note and the program.\n");

    if (options.display) host.showDisplay();
    if (options.keys)
        playFromKeys(signals, host);
    else
        playFromCommands(signals, host);
    host.end();
    return 0;
}

int listPorts(const std::string& client)
{
    checkClientName(client);
    Event event;
    Ports ports;
    PortMemory(Backend::OrvUtils::getOrvAppDataDir(), reportOnStandardError).restore(ports, firstOutputName());
    const auto system = openMidiSystem(client, ports, event);
    for (const std::string& line : system->takeNews()) reportOnStandardError(line);
    std::cout << "Back end: " << system->name() << "\n"
              << describePorts(ports.inputList(), ports.outputList()) << std::flush;
    return 0;
}
}  // namespace Host
