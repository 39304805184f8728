#pragma once

#include <array>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "api/HostState.h"
#include "api/HostStatus.h"
#include "api/OrvIF.h"
#include "host/clock/Clock.h"
#include "host/clock/ClockPorts.h"
#include "host/clock/Slices.h"
#include "host/common/Report.h"
#include "host/common/SetupFile.h"
#include "host/devices/MidiSystem.h"
#include "host/performance/PerformanceCommand.h"
#include "host/player/Player.h"
#include "host/ports/PortMemory.h"
#include "host/ports/Ports.h"
#include "host/run/BackendInputs.h"
#include "host/run/LiveDisplay.h"
#include "host/run/Status.h"
#include "platform/Mutex.h"

namespace Host
{
/// The backend while it plays live: from construction to `end` it receives the inputs, plays to the outputs and gets
/// its slices from the clock. The thread that constructs it is the control thread, which alone opens and closes ports.
class LivePlay
{
public:
    /// All references must outlive this object. `requests` is set whenever `serve` has something to do. `reportLine` is
    /// called on any thread. The files of `setup` can be loaded. `overrides`:
    /// the settings that the command line replaces. New ports are added to `portMemory`. Throws
    /// std::bad_alloc.
    LivePlay(MidiSystem& midiSystem, Ports& allPorts, PortMemory& portMemory, Event& requests, Report reportLine,
             const Setup& setup, const ClockPorts& links, const Backend::HostOverrides& overrides = {});

    /// Calls `end` if that was not done.
    ~LivePlay();

    LivePlay(const LivePlay&) = delete;
    LivePlay& operator=(const LivePlay&) = delete;

    Backend::OrvIF& getOrv() { return *orv; }

    /// Executes a command of a performance; waits while the process is being suspended. Any thread.
    void execute(const Command& command) EXCLUDES(executing);

    /// Saves the retrospective record under that file stem and reports the result. Any thread.
    void saveRecord(const std::string& stem);

    /// From now on the display's lines are printed, at each `updateDisplay` and at the end.
    void showDisplay();
    void updateDisplay();

    /// The state now, with the load since the last call.
    Status status();

    /// For the status line of a window. Control thread.
    Gui::HostStatus windowStatus();

    /// The load since the start.
    SliceLoad::Summary wholeLoad() const { return SliceLoad::summarise({}, load.counts()); }

    /// The settings of the host after the last change; none if there was none since the last call.
    std::optional<Backend::HostSettings> takeSettings() EXCLUDES(settingsLock);

    /// From now on. -1 for none; a port that does not exist counts as none.
    void setClocks(const ClockPorts& links);

    /// Opens and closes the ports that the user enabled and disabled, follows devices that are plugged in and
    /// unplugged, and passes the tempo of an external clock to the backend. To be called several times a second.
    void serve();

    /// Ends every note, calls `stopProcess`, and enables the inputs again when that returns. The user's choices stay.
    void suspend(const std::function<void()>& stopProcess) EXCLUDES(executing);

    /// Ends every note and the backend, then stops the clock and closes the ports: inputs off, two slices, a reset, the
    /// backend's end while slices still run. Ends also where a clock stalls, which is replaced. The backend object
    /// stays until this one is destroyed, and frees what is still posted to it.
    void end();

private:
    void start(const Setup& setup, const ClockPorts& links, const Backend::HostOverrides& overrides);
    void reportSaved(const Backend::RetroRecord::SaveReport& saved) const;
    void applyStoredChoices(const Backend::HostStart& stored);
    void storeNewChoices();
    void publishPorts();
    void reportNews();
    void reportFloods();
    void releaseCutInputs();
    std::string describeRealTime() const;
    void serveInputs();
    void serveOutputs();
    void serveTempo();
    void switchInputsOff();
    void endNotes();
    void waitForRest();

    MidiSystem& system;
    Ports& ports;
    Event& requested;
    Player player;
    LiveDisplay display;
    std::unique_ptr<Backend::OrvIF> orv;
    BackendInputs arrivals{*orv};
    SliceLoad load;
    SliceLoad::Counts loadBefore{};
    Slices slices;
    Clock clock;
    PortMemory& memory;
    const Report report;
    Mutex settingsLock;
    std::optional<Backend::HostSettings> newSettings GUARDED_BY(settingsLock);
    Mutex executing;               // held while a command is executed, and while the process is suspended
    std::size_t inputChoices = 0;  // stored so far
    std::size_t outputChoices = 0;
    std::size_t reportedLeftOut = 0;
    struct Flood {
        std::uint64_t limited = 0;
        std::chrono::steady_clock::time_point reported;
    };
    std::array<Flood, Ports::MOST> floods{};  // by input
    bool ended = false;
    bool showsDisplay = false;
};
}  // namespace Host
