#pragma once

#include <array>
#include <chrono>
#include <memory>
#include <string>

#include "api/OrvIF.h"
#include "host/clock/Clock.h"
#include "host/clock/ClockLinks.h"
#include "host/clock/Slices.h"
#include "host/common/SetupFile.h"
#include "host/performance/PerformanceCommand.h"
#include "host/player/Player.h"
#include "host/ports/PortMemory.h"
#include "host/ports/Ports.h"
#include "host/run/LiveWindow.h"
#include "host/run/Status.h"
#include "host/system/MidiSystem.h"

namespace Host
{
/// The backend playing live: it starts with this object, hears the inputs, plays to the outputs and is driven by the
/// system's clock until `end`. The thread that makes it is the control thread: it opens and closes the ports for
/// everybody else.
class LivePlay
{
public:
    /// All must outlive this. `wishes` is set whenever `serve` has something to do. `tell` gets lines for the user, on
    /// any thread. The files of `setup` can be loaded. New ports are entered into `portMemory`. Throws std::bad_alloc.
    LivePlay(MidiSystem& midiSystem, Ports& allPorts, PortMemory& portMemory, Event& wishes, Report reportLine,
             const Setup& setup, const ClockLinks& links);

    /// Ends first if that has not been done.
    ~LivePlay();

    LivePlay(const LivePlay&) = delete;
    LivePlay& operator=(const LivePlay&) = delete;

    Backend::OrvIF& getOrv() { return *orv; }

    /// Carries a command of a performance out. Any thread.
    void execute(const Command& command);

    /// Saves the retrospective record under that file stem and tells the user what became of it. Any thread.
    void saveRecord(const std::string& stem);

    /// From now on the display's lines are printed, each time they are asked for and at the end. Not before.
    void showDisplay();
    void updateDisplay();

    /// How it stands, with the load since the last call.
    Status status();

    /// The load since the start.
    SliceLoad::Summary wholeLoad() const { return SliceLoad::summarise({}, load.counts()); }

    /// Opens and closes what the user wished, follows devices that come and go, and gives the program the tempo of a
    /// clock from outside. To be called several times a second.
    void serve();

    /// Ends with every note off: inputs off, two slices, a reset, the backend's end while slices still run, then the
    /// clock stands and the ports close. Always comes to its end: a clock that stalls is replaced. The backend is there
    /// until this object goes, and frees what is still posted to it.
    void end();

private:
    void start(const Setup& setup, const ClockLinks& links);
    void takeChoices();
    void keepChoices();
    void publishPorts();
    void reportNews();
    void reportFloods();
    void releaseCutInputs();
    std::string describeRealTime() const;
    void serveInputs();
    void serveOutputs();
    void serveTempo();
    void switchInputsOff();
    void waitForRest();

    MidiSystem& system;
    Ports& ports;
    Player player;
    LiveDisplay display;
    LiveWindow window;
    std::unique_ptr<Backend::OrvIF> orv;
    SliceLoad load;
    SliceLoad::Counts loadBefore{};
    Slices slices;
    Clock clock;
    PortMemory& memory;
    const Report report;
    std::size_t inputChoices = 0;  // stored so far
    std::size_t outputChoices = 0;
    std::size_t reportedLeftOut = 0;
    struct Flood {
        std::uint64_t limited = 0;
        std::chrono::steady_clock::time_point told;
    };
    std::array<Flood, Ports::MOST> floods{};  // by input
    bool ended = false;
    bool showsDisplay = false;
};
}  // namespace Host
