#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "api/HostState.h"
#include "host/common/Report.h"
#include "host/devices/MidiSystem.h"
#include "host/ports/PortMemory.h"
#include "host/ports/Ports.h"
#include "host/run/LivePlay.h"
#include "host/run/ProcessSignals.h"
#include "host/run/RunOptions.h"
#include "host/session/Session.h"
#include "host/terminal/StatusLine.h"

namespace Host
{
/// The stand-alone host while it plays live, with a window or without one: the devices, what plays through them, and
/// the options of the command line. The thread that constructs it is the control thread; all operations belong to it
/// unless they say otherwise.
class LiveHost
{
public:
    /// Opens the devices and reports what is missing. The options were checked. `wakeUp` wakes the control thread; it
    /// and the signals outlive this object.
    LiveHost(const RunOptions& runOptions, ProcessSignals& processSignals, Event& wakeUp, Report reportLine);

    LiveHost(const LiveHost&) = delete;
    LiveHost& operator=(const LiveHost&) = delete;

    /// Whether there is a MIDI system or a sound output.
    bool hasOutput() const;

    /// Begins to play. Throws InputError if a port that the options name does not exist.
    void start();

    /// Between `start` and the destructor. Commands may be executed on any thread until `end`.
    LivePlay& getPlay() { return *play; }

    /// The version, and the devices and ports as they were at the start, for the user. Any thread.
    const std::string& describe() const { return description; }

    /// Prints the display's lines from now on.
    void showDisplay();

    /// Until `isEndRequested`: serves the ports, shows the status if the options ask for it, saves the record and
    /// suspends the process when a signal requests it. `isEndRequested` is called several times a second and whenever
    /// the event is set.
    void playUntil(const std::function<bool()>& isEndRequested);

    /// Ends every note and reports what was lost; with the status line also the load of all slices. The backend object
    /// stays, at rest, until this one is destroyed.
    void end();

private:
    Backend::HostOverrides findOverrides() const;
    std::string findClientName() const;
    ClockPorts findClocks() const;
    void reportUnusableClockPorts(const ClockPorts& links) const;
    void followTransport() const;
    void applySettings();
    void setDefaultOutput(int output);
    void connectPorts();
    void showStatus();

    const RunOptions options;
    ProcessSignals& signals;
    Event& event;
    const Report report;
    Backend::HostSettings settings;
    Ports ports;
    PortMemory memory;
    std::unique_ptr<MidiSystem> system;
    std::unique_ptr<LivePlay> play;
    std::unique_ptr<StatusLine> status;  // null for none
    std::string description;
};
}  // namespace Host
