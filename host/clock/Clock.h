#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <utility>

#include "host/clock/ClockOwner.h"
#include "host/clock/PeriodInputs.h"
#include "host/clock/PulseClock.h"
#include "host/clock/Slices.h"
#include "host/clock/TempoController.h"
#include "host/clock/TickTimer.h"
#include "host/player/Player.h"
#include "platform/Event.h"
#include "platform/Thread.h"

namespace Host
{
/// The host's clock: it plays time slices at the tempo of its tempo controller. In an audio graph the process callback
/// plays them, one slice per pulse, with the frame of the pulse as its stamp, or one for a period in which nothing
/// arrives while the engine rests. Without a graph the clock's own thread plays a slice about every millisecond, or a
/// longer one every 20 ms after a second in which nothing was played, while the engine rests. That thread also runs
/// beside a graph and takes over at the pulse where the graph stopped. `ClockOwner` says which of the two plays:
///
/// | graph     | entered by                                       | owner of the clock                  |
/// |-----------|--------------------------------------------------|-------------------------------------|
/// | none      | `startOnThread`                                  | thread                              |
/// | running   | `startInGraph`; when the thread has handed over  | graph                               |
/// | hung      | from running: no period for half a second        | thread                              |
/// | lost      | `graphLost`                                      | thread                              |
/// | returning | `returnToGraph`; from hung: the third period     | thread, until its next slice        |
///
/// If the process was stopped for more than 100 ms, the time beyond is skipped. No pulse is ever skipped.
class Clock
{
public:
    /// `afterSlice` is called on the clock's own thread after a slice in which a message was played.
    Clock(Slices& songSlices, Player& songPlayer, std::function<void()> afterSlice);
    ~Clock();

    // Control thread

    /// The port that a MIDI clock is sent to, null for none. Takes effect with the next slice.
    void setClockOut(OutputPort* port)
    {
        if (port != nullptr) port->carryClock();
        tempo.setClockOut(port);
    }

    /// Whether the engine rests now (`OrvIF::tryRest`). Without it the clock does not rest. Before the start.
    void setTryRest(std::function<bool()> tryRest) { tryRestEngine = std::move(tryRest); }

    void startOnThread();
    void startInGraph(std::int64_t framesPerSecond);

    /// There is a new graph, whose process callback runs already: it continues where the thread stops.
    void returnToGraph(std::int64_t framesPerSecond);

    /// No slice is played once this has returned.
    void stop();

    /// Waits until that many more slices have been played, at most 5 seconds.
    void waitForSlices(std::uint64_t slices) const;

    /// No process callback for half a second, although the server is not known to have stopped. Any thread.
    bool graphHangs() const { return graph.load() == Graph::hung; }

    /// The clock's own thread plays. Any thread.
    bool runsOnItsThread() const { return owner.isOwnedBy(ClockOwner::Owner::thread); }

    // Process callback

    /// The graph hung and does not own the clock again: it should send nothing in this period.
    bool isResuming() const { return graphHangs() || graph.load() == Graph::returning; }

    /// Plays the next `frames` frames, the first of which has that stamp: the messages of `inputs` and the pulses, each
    /// at its frame, a message before the pulse of the same frame. `transport` is the state of the graph's transport at
    /// the first frame. Either may be null. Nothing is played, and
    /// the messages are left, if the graph does not own the clock.
    void playPeriod(std::uint32_t firstStamp, std::uint32_t frames, const Transport* transport = nullptr,
                    PeriodInputs* inputs = nullptr);

    /// A message arrived at an input at the frame of that stamp, in a period that is about to be played. Messages of
    /// the external MIDI clock are processed, others ignored.
    void receiveInGraph(int input, const ShortMessage& message, std::uint32_t stamp);

    /// The sample rate from the next period on.
    void setGraphRate(std::int64_t framesPerSecond);

    // Other threads

    /// A message arrived at an input just now, without a graph. One thread at a time.
    void receive(int input, const ShortMessage& message);

    /// The process callback will not run again. Any thread; async-signal-safe.
    void graphLost();

private:
    using Time = std::chrono::steady_clock::time_point;

    enum class Graph { none, running, hung, lost, returning };

    bool replace(Graph expected, Graph next) { return graph.compare_exchange_strong(expected, next); }
    void begin(ClockOwner::Owner first);
    void run();
    void standBy();
    bool hasStalled();
    void takeOver();
    void handBack();
    void playInputs(PeriodInputs* inputs, std::uint32_t lastFrame);
    void setFrame(std::uint32_t frame);
    bool synchronise(Time now, std::uint32_t frames);
    void tick(const TickTimer& timer);
    bool tryRest() const;
    bool rest();
    int takeDuePulses(Time now);

    Slices& slices;
    Player& player;
    TempoController tempo{player};
    const std::function<void()> afterSlice;
    std::function<bool()> tryRestEngine;

    ClockOwner owner;
    std::atomic<bool> stopping{false};
    std::atomic<Graph> graph{Graph::none};
    std::atomic<std::int64_t> graphRate{0};
    std::atomic<std::uint32_t> periods{0};  // process callbacks so far; wraps round
    Event wake;
    Thread thread;

    // Used by the process callback
    int periodsAfterHang = 0;

    // Used by the owner of the clock
    std::optional<PulseClock> framePulses;
    std::int64_t framesPerSecond = 1;
    Time graphTime;        // the end of the last period played
    bool resumes = false;  // the next period is the first after the thread played
    double seconds = 0;    // played so far
    std::uint32_t periodStamp = 0;
    std::uint32_t periodStart = 0;  // milliseconds

    // Used by the clock's own thread
    PulseClock timePulses;
    Time lastTick;
    Time nextTick;
    Time lastPlayed;  // a message
    Time lastLook;
    std::chrono::nanoseconds silence{0};  // since the last process callback
    std::uint32_t periodsSeen = 0;
};
}  // namespace Host
