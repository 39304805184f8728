#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "host/common/Report.h"
#include "host/ports/PortMemory.h"
#include "host/ports/Ports.h"
#include "host/run/LivePlay.h"
#include "host/run/ProcessSignals.h"
#include "host/run/RunOptions.h"
#include "host/session/Session.h"
#include "host/system/MidiSystem.h"
#include "host/terminal/StatusLine.h"

namespace Host
{
/// The stand-alone host while it plays live: the devices, what plays through them, and all that the command line asked
/// for. With a window or without one. The thread that makes it is the control thread; what is not said to be otherwise
/// is its own.
class LiveHost
{
public:
    /// Opens the devices and tells what is missing. The options were checked. `wakeUp` wakes the control thread; it and
    /// the signals outlive this.
    LiveHost(const RunOptions& runOptions, ProcessSignals& endSignals, Event& wakeUp, Report reportLine);

    LiveHost(const LiveHost&) = delete;
    LiveHost& operator=(const LiveHost&) = delete;

    bool hasOutput() const;

    /// From here it plays. Throws InputError if there is no such port as the options name.
    void start();

    /// Once it has started. Its commands may be used on any thread until `end`.
    LivePlay& getPlay() { return *play; }

    /// The version, and the devices and the ports as they were when it started, for the user. Any thread.
    const std::string& describe() const { return description; }

    /// Prints the display's lines from now on.
    void showDisplay();

    /// Serves the ports, shows the status if that was asked for, and saves the record when a signal asks for it, until
    /// `isEndRequested`, which is asked several times a second and whenever the event is set.
    void playUntil(const std::function<bool()>& isEndRequested);

    /// Ends with every note off and tells what was lost, and what the slices cost beside the status. The backend stays,
    /// at rest, as long as this.
    void end();

private:
    ClockLinks findClocks() const;
    void reportUnusableClockPorts(const ClockLinks& links) const;
    void followTransport();
    void setDefaultOutput(int output);
    void join();
    void showStatus();

    const RunOptions options;
    ProcessSignals& signals;
    Event& event;
    const Report report;
    Ports ports;
    PortMemory memory;
    std::unique_ptr<MidiSystem> system;
    std::unique_ptr<LivePlay> play;
    std::unique_ptr<StatusLine> status;  // null for none
    std::string description;
};
}  // namespace Host
