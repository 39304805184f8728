#include "host/clock/Clock.h"

#include <algorithm>
#include <thread>
#include <utility>

#include "platform/Clock.h"

namespace Host
{
using namespace std::chrono_literals;
using Holder = ClockBaton::Holder;

namespace
{
constexpr std::int64_t NANOSECONDS = 1'000'000'000;
constexpr auto TICK = 1ms;
constexpr auto MOST_TO_CATCH_UP = 100ms;  // 200 pulses at the highest tempo
constexpr auto STAND_BY_LOOK = 50ms;
constexpr auto LONGEST_SILENCE = 500ms;
constexpr auto LONGEST_WAIT_FOR_SLICES = 5s;

/// A stamp, which wraps round after 71 minutes.
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

void Clock::startOnThread() { begin(Holder::thread); }

void Clock::startInGraph(std::int64_t rate)
{
    framesPerSecond = rate;
    framePulses.emplace(rate);
    begin(Holder::graph);
}

void Clock::begin(Holder holder)
{
    lastTick = nextTick = lastSlice = graphTime = std::chrono::steady_clock::now();
    baton.passTo(holder);
    thread.start("orvane clock", [this] { run(); });
}

void Clock::stop()
{
    stopping.store(true);
    wake.set();
    thread.join();
    baton.passTo(Holder::nobody);
    conductor.end();
}

void Clock::waitForSlices(std::uint64_t count) const
{
    const std::uint64_t enough = slices.count() + count;
    const auto giveUp = std::chrono::steady_clock::now() + LONGEST_WAIT_FOR_SLICES;
    while (slices.count() < enough && std::chrono::steady_clock::now() < giveUp) std::this_thread::sleep_for(TICK);
}

void Clock::playPeriod(std::uint32_t firstStamp, std::uint32_t frames, const Transport* transport)
{
    if (!baton.enter(Holder::graph)) return;
    player.takeClock();
    const std::uint32_t periodStart = monotonicMilliseconds();
    const std::uint64_t slicesBefore = slices.count();
    const bool isLate = catchUp(std::chrono::steady_clock::now(), frames);
    const auto rate = static_cast<double>(framesPerSecond);
    if (transport != nullptr) conductor.heed(seconds, *transport);
    conductor.heed(seconds, firstStamp, rate);
    while (framePulses->ticksToPulse() < frames) {
        const auto frame = static_cast<std::uint32_t>(std::max<std::int64_t>(framePulses->ticksToPulse(), 0));
        player.setStamp(firstStamp + frame);
        player.setMilliseconds(periodStart + static_cast<std::uint32_t>(frame * std::int64_t{1000} / framesPerSecond));
        const double bpm = conductor.passPulse(seconds + frame / rate, firstStamp + frame);
        slices.play(1);
        framePulses->passPulse(bpm);
    }
    framePulses->passTicks(frames);
    seconds += frames / rate;
    if (isLate) slices.noteLate(slices.count() - slicesBefore);
    graphTime += std::chrono::nanoseconds(frames * NANOSECONDS / framesPerSecond);
    baton.leave();
}

/// The first period behind the thread's slices begins where those ended. True if a period is missing.
bool Clock::catchUp(Time now, std::uint32_t frames)
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
    if (!baton.enter(Holder::graph)) return;
    PulseClock atRate(rate);
    atRate.continueFrom(*framePulses);
    framePulses.emplace(atRate);
    framesPerSecond = rate;
    baton.leave();
}

void Clock::hearInGraph(int input, const ShortMessage& message, std::uint32_t stamp)
{
    if (baton.isHeldBy(Holder::graph)) conductor.hear(input, message, stamp);
}

void Clock::hearNow(int input, const ShortMessage& message)
{
    if (baton.isHeldBy(Holder::thread)) conductor.hear(input, message, microseconds(std::chrono::steady_clock::now()));
}

void Clock::graphDied()
{
    nextGraphRate.store(0);
    died.store(true);
    wake.set();
}

void Clock::returnToGraph(std::int64_t rate)
{
    died.store(false);
    nextGraphRate.store(rate);
    wake.set();
}

void Clock::run()
{
    if (runsOnItsThread()) requestRealTimePriority(RealTimeStep::clock);
    while (!stopping.load()) {
        if (!runsOnItsThread())
            standBy();
        else if (nextGraphRate.load() != 0)
            handBack();
        else
            tick();
    }
}

void Clock::standBy()
{
    wake.waitFor(STAND_BY_LOOK);
    const auto now = std::chrono::steady_clock::now();
    if (slices.count() != slicesThen || !insists.load()) lastSlice = now;
    slicesThen = slices.count();
    if (!stopping.load() && (died.load() || now - lastSlice > LONGEST_SILENCE)) takeOver();
}

void Clock::takeOver()
{
    requestRealTimePriority(RealTimeStep::clock);
    baton.passTo(Holder::thread);
    conductor.forgetHeard();
    timePulses.continueFrom(*framePulses);
    lastTick = graphTime;
    nextTick = std::chrono::steady_clock::now();
}

void Clock::handBack()
{
    const std::int64_t rate = nextGraphRate.exchange(0);
    if (rate == 0) return;
    baton.passTo(Holder::nobody);
    conductor.forgetHeard();
    framesPerSecond = rate;
    framePulses.emplace(rate);
    framePulses->continueFrom(timePulses);
    graphTime = lastTick;
    resumes = true;
    lastSlice = std::chrono::steady_clock::now();
    baton.passTo(Holder::graph);
}

void Clock::tick()
{
    nextTick += TICK;
    std::this_thread::sleep_until(nextTick);
    const Time now = std::chrono::steady_clock::now();
    if (now - nextTick > TICK) slices.noteLate(1);
    nextTick = std::max(nextTick, now - TICK);
    if (!baton.enter(Holder::thread)) return;
    player.takeClock();
    player.setMilliseconds(monotonicMilliseconds());
    slices.play(takeDuePulses(now));
    const bool played = player.takePlayed();
    baton.leave();
    if (played) afterSlice();
}

int Clock::takeDuePulses(Time now)
{
    const auto passed = std::max<std::chrono::nanoseconds>(now - lastTick, 0ns);
    lastTick = std::max(lastTick, now);
    seconds += std::chrono::duration<double>(passed).count();
    conductor.heed(seconds, microseconds(now), 1e6);
    timePulses.passTicks(std::min<std::chrono::nanoseconds>(passed, MOST_TO_CATCH_UP).count());
    int due = 0;
    for (; timePulses.ticksToPulse() <= 0; ++due)
        timePulses.passPulse(conductor.passPulse(seconds + static_cast<double>(timePulses.ticksToPulse()) / 1e9, 0));
    return due;
}
}  // namespace Host
