#include "host/clock/Clock.h"

#include <algorithm>
#include <thread>
#include <utility>

#include "platform/Clock.h"

namespace Host
{
using namespace std::chrono_literals;
using Owner = ClockOwner::Owner;

namespace
{
constexpr std::int64_t NANOSECONDS = 1'000'000'000;
constexpr auto TICK = 1ms;
constexpr auto MOST_TO_CATCH_UP = 100ms;  // 200 pulses at the highest tempo
constexpr auto UNTIL_REST = 1s;
constexpr auto REST = 20ms;
constexpr auto STAND_BY_INTERVAL = 125ms;
constexpr auto LONGEST_SILENCE = 500ms;
constexpr int PERIODS_TO_RESUME = 3;  // a server that hung may run two at once, and then the first is lost
constexpr auto LONGEST_WAIT_FOR_SLICES = 5s;

/// A stamp; it wraps round after 71 minutes.
std::uint32_t microseconds(std::chrono::steady_clock::time_point time)
{
    return static_cast<std::uint32_t>(
        std::chrono::duration_cast<std::chrono::microseconds>(time.time_since_epoch()).count());
}
}  // namespace

Clock::Clock(Slices& songSlices, Player& songPlayer, std::function<void()> after)
    : slices(songSlices), player(songPlayer), afterSlice(std::move(after)), timePulses(NANOSECONDS)
{
}

Clock::~Clock() { stop(); }

void Clock::startOnThread() { begin(Owner::thread); }

void Clock::startInGraph(std::int64_t rate)
{
    framesPerSecond = rate;
    framePulses.emplace(rate);
    graphRate.store(rate);
    graph.store(Graph::running);
    begin(Owner::graph);
}

void Clock::begin(Owner first)
{
    lastTick = nextTick = lastLook = graphTime = std::chrono::steady_clock::now();
    owner.transferTo(first);
    thread.start("orvane clock", [this] { run(); });
}

void Clock::stop()
{
    stopping.store(true);
    wake.set();
    thread.join();
    owner.transferTo(Owner::none);
    graph.store(Graph::none);
    tempo.end();
}

void Clock::waitForSlices(std::uint64_t count) const
{
    const std::uint64_t enough = slices.count() + count;
    const auto giveUp = std::chrono::steady_clock::now() + LONGEST_WAIT_FOR_SLICES;
    while (slices.count() < enough && std::chrono::steady_clock::now() < giveUp) std::this_thread::sleep_for(TICK);
}

void Clock::playPeriod(std::uint32_t firstStamp, std::uint32_t frames, const Transport* transport, PeriodInputs* inputs)
{
    periods.fetch_add(1);
    if (!owner.enter(Owner::graph)) {
        if (graphHangs() && ++periodsAfterHang >= PERIODS_TO_RESUME) replace(Graph::hung, Graph::returning);
        return;
    }
    periodsAfterHang = 0;
    player.setClockThread();
    periodStart = monotonicMilliseconds();
    periodStamp = firstStamp;
    const std::uint64_t slicesBefore = slices.count();
    const bool isLate = synchronise(std::chrono::steady_clock::now(), frames);
    const auto rate = static_cast<double>(framesPerSecond);
    if (transport != nullptr)
        tempo.processTransport(seconds, *transport);
    else
        tempo.leaveTransport(seconds);
    tempo.process(seconds, firstStamp, rate);
    const bool isQuiet = (inputs == nullptr || !inputs->nextFrame()) && tryRest();
    const int longest = isQuiet ? Slices::LONGEST : 1;
    int pulses = 0;
    while (framePulses->ticksToPulse() < frames) {
        const auto frame = static_cast<std::uint32_t>(std::max<std::int64_t>(framePulses->ticksToPulse(), 0));
        playInputs(inputs, frame);
        setFrame(frame);
        const double bpm = tempo.passPulse(seconds + frame / rate, firstStamp + frame);
        if (++pulses == longest) slices.play(std::exchange(pulses, 0));
        framePulses->passPulse(bpm);
    }
    if (pulses > 0) slices.play(pulses);
    playInputs(inputs, frames);
    framePulses->passTicks(frames);
    seconds += frames / rate;
    if (isLate) slices.noteLate(slices.count() - slicesBefore);
    graphTime += std::chrono::nanoseconds(frames * NANOSECONDS / framesPerSecond);
    owner.leave();
}

void Clock::playInputs(PeriodInputs* inputs, std::uint32_t lastFrame)
{
    if (inputs == nullptr) return;
    for (auto frame = inputs->nextFrame(); frame && *frame <= lastFrame; frame = inputs->nextFrame()) {
        setFrame(*frame);
        inputs->playNext();
    }
}

/// What is played from now on is at that frame of the period.
void Clock::setFrame(std::uint32_t frame)
{
    player.setStamp(periodStamp + frame);
    player.setMilliseconds(periodStart + static_cast<std::uint32_t>(frame * std::int64_t{1000} / framesPerSecond));
}

/// The first period after slices of the clock's own thread begins where those ended. True if a period was missed.
bool Clock::synchronise(Time now, std::uint32_t frames)
{
    const std::chrono::nanoseconds period(frames * NANOSECONDS / framesPerSecond);
    const bool isLate = now - graphTime > std::max<std::chrono::nanoseconds>(period, TICK);
    if (std::exchange(resumes, false)) {
        const auto missed = std::max<std::chrono::nanoseconds>(now - graphTime, 0ns);
        seconds += std::chrono::duration<double>(missed).count();
        const auto caughtUp = std::min<std::chrono::nanoseconds>(missed, MOST_TO_CATCH_UP);
        framePulses->passTicks(caughtUp.count() * framesPerSecond / NANOSECONDS);
    }
    graphTime = now;
    return isLate;
}

void Clock::setGraphRate(std::int64_t rate)
{
    graphRate.store(rate);
    if (!owner.enter(Owner::graph)) return;
    PulseClock atRate(rate);
    atRate.continueFrom(*framePulses);
    framePulses.emplace(atRate);
    framesPerSecond = rate;
    owner.leave();
}

void Clock::receiveInGraph(int input, const ShortMessage& message, std::uint32_t stamp)
{
    if (owner.isOwnedBy(Owner::graph)) tempo.receive(input, message, stamp);
}

void Clock::receive(int input, const ShortMessage& message)
{
    if (owner.isOwnedBy(Owner::thread)) tempo.receive(input, message, microseconds(std::chrono::steady_clock::now()));
}

void Clock::graphLost()
{
    graph.store(Graph::lost);
    wake.set();
}

void Clock::returnToGraph(std::int64_t rate)
{
    graphRate.store(rate);
    graph.store(Graph::returning);
    wake.set();
}

void Clock::run()
{
    if (runsOnItsThread()) requestRealTimePriority(RealTimeStep::clock);
    const TickTimer timer;
    while (!stopping.load()) {
        if (!runsOnItsThread())
            standBy();
        else if (graph.load() == Graph::returning)
            handBack();
        else
            tick(timer);
    }
}

void Clock::standBy()
{
    wake.waitFor(STAND_BY_INTERVAL);
    if (hasStalled()) replace(Graph::running, Graph::hung);
    if (!stopping.load() && graph.load() != Graph::running) takeOver();
}

/// No process callback has run for `LONGEST_SILENCE`. If this process was suspended, that time does not count.
bool Clock::hasStalled()
{
    const Time now = std::chrono::steady_clock::now();
    const std::uint32_t count = periods.load();
    if (std::exchange(periodsSeen, count) != count) silence = 0ns;
    silence += std::min<std::chrono::nanoseconds>(now - std::exchange(lastLook, now), 2 * STAND_BY_INTERVAL);
    return silence > LONGEST_SILENCE;
}

void Clock::takeOver()
{
    requestRealTimePriority(RealTimeStep::clock);
    owner.transferTo(Owner::thread);
    tempo.discardReceived();
    timePulses.continueFrom(*framePulses);
    lastTick = graphTime;
    nextTick = std::chrono::steady_clock::now();
}

void Clock::handBack()
{
    if (!replace(Graph::returning, Graph::running)) return;
    const std::int64_t rate = graphRate.load();
    owner.transferTo(Owner::none);
    tempo.discardReceived();
    framesPerSecond = rate;
    framePulses.emplace(rate);
    framePulses->continueFrom(timePulses);
    graphTime = lastTick;
    resumes = true;
    lastLook = std::chrono::steady_clock::now();
    silence = 0ns;
    owner.transferTo(Owner::graph);
}

void Clock::tick(const TickTimer& timer)
{
    if (!rest()) {
        nextTick += TICK;
        timer.sleepUntil(nextTick);
    }
    const Time now = std::chrono::steady_clock::now();
    if (now - nextTick > TICK) slices.noteLate(1);
    nextTick = std::max(nextTick, now - TICK);
    if (!owner.enter(Owner::thread)) return;
    player.setClockThread();
    player.setMilliseconds(monotonicMilliseconds());
    slices.play(takeDuePulses(now));
    const bool played = player.takePlayed();
    owner.leave();
    if (!played) return;
    lastPlayed = now;
    afterSlice();
}

/// A clock that is sent or followed needs every pulse in time.
bool Clock::tryRest() const
{
    return !tempo.sendsClock() && player.getClockSource() < 0 && tryRestEngine && tryRestEngine();
}

/// True if it rested: then the next slice is due now.
bool Clock::rest()
{
    if (nextTick - lastPlayed < UNTIL_REST || !tryRest()) return false;
    player.waitForWork(REST);
    nextTick = std::chrono::steady_clock::now();
    return true;
}

int Clock::takeDuePulses(Time now)
{
    const auto passed = std::max<std::chrono::nanoseconds>(now - lastTick, 0ns);
    lastTick = std::max(lastTick, now);
    seconds += std::chrono::duration<double>(passed).count();
    tempo.process(seconds, microseconds(now), 1e6);
    timePulses.passTicks(std::min<std::chrono::nanoseconds>(passed, MOST_TO_CATCH_UP).count());
    int due = 0;
    for (; timePulses.ticksToPulse() <= 0; ++due)
        timePulses.passPulse(tempo.passPulse(seconds + static_cast<double>(timePulses.ticksToPulse()) / 1e9, 0));
    return due;
}
}  // namespace Host
