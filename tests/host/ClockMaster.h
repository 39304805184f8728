#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <functional>
#include <random>
#include <utility>

#include "host/clock/ClockFollower.h"

namespace Host::Testing
{
/// A simulated MIDI clock in virtual time, with a follower that receives its ticks and plays pulses.
class ClockMaster
{
public:
    ClockFollower follower;

    /// The deviation of a tick from its time, in seconds. Ticks are counted from 0.
    std::function<double(std::int64_t tick)> jitter = [](std::int64_t) { return 0.0; };

    /// How often a tick is received.
    std::function<int(std::int64_t tick)> copies = [](std::int64_t) { return 1; };

    /// Called after each pulse.
    std::function<void()> afterPulse = [] {};

    /// Sends that many ticks at a tempo. The first comes a tick of this tempo after the last one.
    void play(int ticks, double bpm)
    {
        play(ticks, [=](double) { return bpm; });
    }

    /// The same at a tempo that depends on the time since the first, in seconds.
    void play(int ticks, const std::function<double(double)>& bpm)
    {
        const double first = nextTick;
        for (int count = 0; count < ticks; ++count, ++tick) {
            nextTick += 60 / bpm(nextTick - first) / ClockFollower::TICKS_PER_BEAT;
            const double arrival = nextTick + jitter(tick);
            runTo(arrival);
            for (int copy = copies(tick); copy > 0; --copy) follower.tick(arrival);
        }
        runTo(nextTick);
    }

    void wait(double seconds) { runTo(nextTick += seconds); }

    /// How many pulses the counter was ahead of the last tick at the tick's nominal time, -240 to 240, if that was tick
    /// `ofBeat` of a beat.
    double ahead(std::int64_t ofBeat) const
    {
        const double pulses = static_cast<double>(pulse) - (nextPulse - nextTick) * effectiveTempo * 8;
        const double beats = (pulses - ClockFollower::PULSES_PER_TICK * static_cast<double>(ofBeat)) / 480;
        return (beats - std::floor(beats + 0.5)) * 480;
    }

    double now = 0;
    double effectiveTempo = 120;  ///< of the last pulse
    std::int64_t pulse = 0;       ///< the next one's number

private:
    void runTo(double time)
    {
        for (; nextPulse <= time; nextPulse += 60 / (effectiveTempo * 480)) {
            now = nextPulse;
            effectiveTempo = follower.passPulse(pulse++, now);
            afterPulse();
        }
        now = std::max(now, time);
    }

    double nextTick = 0;
    double nextPulse = 0;
    std::int64_t tick = 0;
};

/// Uniformly distributed jitter of at most that size; the same numbers on every machine.
inline std::function<double(std::int64_t)> uniformJitter(double seconds, unsigned int seed = 1)
{
    return [random = std::mt19937(seed), seconds](std::int64_t) mutable {
        return (static_cast<double>(random()) / 2147483647.5 - 1) * seconds;
    };
}
}  // namespace Host::Testing
