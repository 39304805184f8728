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
}

void Clock::waitForSlices(std::uint64_t count) const
{
    const std::uint64_t enough = slices.count() + count;
    const auto giveUp = std::chrono::steady_clock::now() + LONGEST_WAIT_FOR_SLICES;
    while (slices.count() < enough && std::chrono::steady_clock::now() < giveUp) std::this_thread::sleep_for(TICK);
}

void Clock::playPeriod(std::uint32_t firstStamp, std::uint32_t frames)
{
    if (!baton.enter(Holder::graph)) return;
    player.takeClock();
    const std::uint32_t periodStart = monotonicMilliseconds();
    const std::uint64_t slicesBefore = slices.count();
    const bool isLate = catchUp(std::chrono::steady_clock::now(), frames);
    while (framePulses->ticksToPulse() < frames) {
        const auto frame = static_cast<std::uint32_t>(std::max<std::int64_t>(framePulses->ticksToPulse(), 0));
        player.setStamp(firstStamp + frame);
        player.setMilliseconds(periodStart + static_cast<std::uint32_t>(frame * std::int64_t{1000} / framesPerSecond));
        slices.play(1);
        framePulses->passPulse(player.getTempo());
    }
    framePulses->passTicks(frames);
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
        const auto missed = std::clamp<std::chrono::nanoseconds>(now - graphTime, 0ns, MOST_TO_CATCH_UP);
        framePulses->passTicks(missed.count() * framesPerSecond / NANOSECONDS);
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
    timePulses.continueFrom(*framePulses);
    lastTick = graphTime;
    nextTick = std::chrono::steady_clock::now();
}

void Clock::handBack()
{
    const std::int64_t rate = nextGraphRate.exchange(0);
    if (rate == 0) return;
    baton.passTo(Holder::nobody);
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
    const auto passed = std::clamp<std::chrono::nanoseconds>(now - lastTick, 0ns, MOST_TO_CATCH_UP);
    lastTick = std::max(lastTick, now);
    timePulses.passTicks(passed.count());
    int due = 0;
    for (; timePulses.ticksToPulse() <= 0; ++due) timePulses.passPulse(player.getTempo());
    return due;
}
}  // namespace Host
