#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>

#include "host/clock/ClockOwner.h"
#include "host/clock/PulseClock.h"
#include "host/clock/Slices.h"
#include "host/clock/TempoController.h"
#include "host/player/Player.h"
#include "platform/Event.h"
#include "platform/Thread.h"

namespace Host
{
/// The host's clock: it turns time into slices at the tempo of its conductor. In an audio graph the graph's process
/// callback drives it, one slice for each pulse, whose stamp is the frame of that pulse; anywhere else a thread of its
/// own does, about every millisecond. That thread stands by beside a graph too, goes on where the graph stopped, should
/// it die, and hands back to the next one.
///
/// When the process was held up for long, time is skipped and pulses are not.
class Clock
{
public:
    /// `afterSlice` is called on the clock's own thread after a slice that played something.
    Clock(Slices& songSlices, Player& songPlayer, std::function<void()> afterSlice);
    ~Clock();

    // Control thread

    /// The port gets a MIDI clock, null for none. Before the start.
    void setClockOut(OutputPort* port) { conductor.setClockOut(port); }

    void startOnThread();
    void startInGraph(std::int64_t framesPerSecond);

    /// There is a graph again, which calls already: it goes on where the thread stops.
    void returnToGraph(std::int64_t framesPerSecond);

    /// No slice is played once this has returned.
    void stop();

    /// Beside a graph: from now on the clock's own thread also goes on if the graph is merely silent for half a second.
    /// So whoever waits for a slice gets one.
    void neverStall() { insists.store(true); }

    /// Waits until that many further slices have been played; gives up after some seconds.
    void waitForSlices(std::uint64_t slices) const;

    bool runsOnItsThread() const { return baton.isHeldBy(ClockBaton::Holder::thread); }

    /// The graph's callback: the next `frames` frames, of which the first has that stamp. `transport` is how the
    /// graph's transport stands then, null where it is not followed.
    void playPeriod(std::uint32_t firstStamp, std::uint32_t frames, const Transport* transport = nullptr);

    /// A message arrived at an input, in a period that is about to be played, at the frame of that stamp; those of a
    /// MIDI clock are heeded. The graph's callback.
    void hearInGraph(int input, const ShortMessage& message, std::uint32_t stamp);

    /// The same where there is no graph, just now. One thread at a time.
    void hearNow(int input, const ShortMessage& message);

    /// The graph's callback: from the next period on a second has that many frames.
    void setGraphRate(std::int64_t framesPerSecond);

    /// The graph will not call again. Any thread, also where only what a signal handler may do is allowed.
    void graphDied();

private:
    using Time = std::chrono::steady_clock::time_point;

    void begin(ClockBaton::Holder holder);
    void run();
    void standBy();
    void takeOver();
    void handBack();
    bool catchUp(Time now, std::uint32_t frames);
    void tick();
    int takeDuePulses(Time now);

    Slices& slices;
    Player& player;
    Conductor conductor{player};
    const std::function<void()> afterSlice;

    ClockBaton baton;
    std::atomic<bool> stopping{false};
    std::atomic<bool> insists{false};
    std::atomic<bool> died{false};
    std::atomic<std::int64_t> nextGraphRate{0};  // of a graph that waits to go on; 0 for none
    Event wake;
    Thread thread;

    // The holder's
    std::optional<PulseClock> framePulses;
    std::int64_t framesPerSecond = 1;
    Time graphTime;        // up to which the graph has played
    bool resumes = false;  // in the next period
    double seconds = 0;    // played so far

    // The clock's own thread's
    PulseClock timePulses;
    Time lastTick;
    Time nextTick;
    Time lastSlice;
    std::uint64_t slicesThen = 0;
};
}  // namespace Host
