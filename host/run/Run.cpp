#include "host/run/Run.h"

#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <ctime>
#include <filesystem>
#include <iostream>
#include <memory>
#include <stdexcept>

#include "backend/core/OrvMessageManager.h"
#include "backend/persistence/Bank.h"
#include "backend/persistence/OrvUtils.h"
#include "host/InputError.h"
#include "host/jack/JackClient.h"
#include "host/run/CommandReader.h"
#include "host/run/EndSignals.h"
#include "host/run/LivePlay.h"
#include "host/run/PortList.h"
#include "host/run/RawTerminal.h"
#include "host/run/StatusLine.h"
#include "host/run/TerminalKeyboard.h"
#include "host/system/MidiSystem.h"

namespace Host
{
namespace
{
constexpr auto LOOK_AROUND = std::chrono::milliseconds(100);

struct Connection {
    std::string from;
    std::string to;
};

void tell(const std::string& line) { std::cerr << std::string(StatusLine::eraser()) + "orvane: " + line + "\n"; }

std::vector<Connection> parseConnections(const std::vector<std::string>& texts)
{
    std::vector<Connection> connections;
    for (const std::string& text : texts) {
        const auto sign = text.find('=');
        if (sign == std::string::npos || sign == 0 || sign + 1 == text.size())
            throw InputError("--connect: '" + text + "' is not two port names with a = between them");
        connections.push_back({text.substr(0, sign), text.substr(sign + 1)});
    }
    return connections;
}

bool isAnythingHeard(const MidiSystem& system, const Ports& ports)
{
    return system.name() != "none" || !ports.outputs()[0]->couldNotOpen;
}

void tellNews(MidiSystem& system)
{
    for (const std::string& line : system.takeNews()) tell(line);
}

void join(MidiSystem& system, const std::vector<Connection>& connections)
{
    for (const auto& [from, to] : connections) try {
            system.connect(from, to);
        } catch (const std::runtime_error& reason) {
            tell("--connect " + from + "=" + to + ": " + reason.what());
        }
}

void setDefaultOutput(LivePlay& play, const Ports& ports, int output)
{
    const OutputPort& port = *ports.outputs()[static_cast<std::size_t>(output)];
    if (!port.found || port.couldNotOpen)
        tell("--default-output: \"" + port.name + (port.found ? "\" could not be opened" : "\" is not there") +
             "; the default output stays as it is");
    else
        play.getOrv().getOrvMessageManager().postChangeDefaultMidiOutput({SelectType::Kind::specific, output});
}

void tellLosses(const Ports& ports)
{
    for (const auto& port : ports.outputs())
        if (port->lossCount() > 0)
            tell(port->name + ": " + std::to_string(port->lossCount()) + " messages were lost, the port was too slow");
}

/// Every file can be loaded, and the last bank among them has a program of that number.
void checkSetup(const Setup& setup)
{
    for (const std::string& file : setup.loads) checkSetupFile(file);
    const auto bank = std::find_if(setup.loads.rbegin(), setup.loads.rend(),
                                   [](const std::string& file) { return file.ends_with(".bnk"); });
    if (bank == setup.loads.rend()) return;
    if (const auto programs = Backend::Bank::fromFile(*bank).programNames.size();
        static_cast<std::size_t>(setup.number) >= programs)
        throw InputError(*bank + ": there is no program " + std::to_string(setup.number) + ", it has " +
                         std::to_string(programs));
}

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

/// What goes on around the playing: on the control thread, until a signal ends it.
struct Stage {
    EndSignals& signals;
    LivePlay& play;
    Event& event;
    const Ports& ports;
    std::unique_ptr<StatusLine> status;  // null for none
};

void playUntilEnd(Stage& stage)
{
    while (!stage.signals.isEndWanted()) {
        stage.event.waitFor(LOOK_AROUND);
        stage.play.updateDisplay();
        if (stage.signals.takeSaveWish()) stage.play.saveRecord(recordStem());
        stage.play.serve();
        if (stage.status && stage.status->isDue()) stage.status->show(describeStatus(stage.play.status(), stage.ports));
    }
}

void playFromKeys(Stage& stage)
{
    const TerminalKeyboard keyboard(STDIN_FILENO, [&](const Command& command) { stage.play.carryOut(command); });
    playUntilEnd(stage);
}

void playFromCommands(Stage& stage)
{
    const CommandReader reader(
        STDIN_FILENO, "standard input", [&](const Command& command) { stage.play.carryOut(command); }, tell);
    playUntilEnd(stage);
}
}  // namespace

int run(const RunOptions& options, const std::function<int()>& otherwise)
{
    checkClientName(options.client);
    checkSetup(options.setup);
    const auto connections = parseConnections(options.connections);
    const auto terminal = options.keys ? std::make_unique<RawTerminal>(STDIN_FILENO) : nullptr;

    Event event;
    EndSignals signals(event);
    Ports ports;
    PortMemory memory(Backend::OrvUtils::getOrvAppDataDir(), tell);
    memory.recall(ports, SYNTHESIZER_NAME);
    const auto system = openMidiSystem(options.client, ports, event);
    tellNews(*system);
    if (!isAnythingHeard(*system, ports)) {
        if (otherwise) return otherwise();
        tell("Nothing can be heard, but the engine runs and what is typed is read.");
    }
    const int defaultOutput = options.defaultOutput ? findOutput(ports.outputList(), *options.defaultOutput) : -1;

    LivePlay play(*system, ports, event, tell, options.setup, &memory);
    if (defaultOutput >= 0) setDefaultOutput(play, ports, defaultOutput);
    if (options.tempo) play.getOrv().getOrvMessageManager().postChangeTempo({false, *options.tempo}, true);
    join(*system, connections);
    std::cout << VERSION << ": " << system->description() << "\n"
              << describePorts(ports.inputList(), ports.outputList())
              << (options.keys ? "The keys of this terminal play" : "Commands are read from standard input")
              << ". Ctrl+C ends with every note off." << std::endl;

    if (options.display) play.showDisplay();
    Stage stage{signals, play, event, ports, options.status ? std::make_unique<StatusLine>() : nullptr};
    if (options.keys)
        playFromKeys(stage);
    else
        playFromCommands(stage);
    play.end();
    if (stage.status) {
        const auto load = play.wholeLoad();
        stage.status->show("In all " + std::to_string(load.slices) + " slices, " + describeLoad(load));
    }
    tellLosses(ports);
    return 0;
}

int listPorts(const std::string& client)
{
    checkClientName(client);
    Event event;
    Ports ports;
    PortMemory(Backend::OrvUtils::getOrvAppDataDir(), tell).recall(ports, SYNTHESIZER_NAME);
    const auto system = openMidiSystem(client, ports, event);
    tellNews(*system);
    std::cout << "Back end: " << system->name() << "\n"
              << describePorts(ports.inputList(), ports.outputList()) << std::flush;
    return 0;
}
}  // namespace Host
