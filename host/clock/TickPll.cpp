#include "host/clock/TickPll.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace Host
{
namespace
{
// In periods
constexpr double FAR_OFF = 0.45;
constexpr double ON_THE_LINE = 0.3;
constexpr double LEAST_OFF_BEAT = 0.1;  // what an interval may always differ by
constexpr double LEAST_UNEVEN = 0.25;
constexpr double MOST_UNEVEN = 1.8;  // the longest interval of an even clock to the shortest

constexpr int TICKS_THAT_DOUBT = 3;  // a line of fewer believes anything
constexpr double JITTER_MEMORY = 32;
constexpr double UNEVENNESS = 0.75;       // of even jitter: its mean to that of the difference of two
constexpr double LEAST_JITTER = 0.00005;  // seconds
constexpr double LEAST_PERIOD = 0.0002;   // seconds; a MIDI cable carries a byte in 0.00032

// In jitters
constexpr double BELIEVED = 4;
constexpr double CHANGED = 8;
constexpr double LEAST_CHANGE = 0.001;
constexpr double MORE_THAN_IN_A_ROW = 2.9;
}  // namespace

void TickLine::tick(double time)
{
    time = std::max(time, lastHeard);
    const double interval = time - lastHeard;
    lastHeard = time;
    if (heardCount == HEARD)
        std::shift_left(heard.begin(), heard.end(), 1);
    else
        ++heardCount;
    heard[heardCount - 1] = {counted, time};
    if (memory == 0 || interval > LONGEST_GAP)
        begin(time);
    else if (doubts > 0 || isFarOff(time - lineTime - period))
        doubt(time, interval);
    else
        take({counted + 1, time});
}

void TickLine::lay(std::int64_t number, double time, double seconds)
{
    memory = MEMORY;
    doubts = 0;
    counted = number;
    lineTime = time;
    period = seconds;
}

/// Ticks that were late, or early, before belong to another tempo, however far they get.
bool TickLine::isFarOff(double deviation) const
{
    if (memory < TICKS_THAT_DOUBT || std::abs(deviation) < FAR_OFF * period) return false;
    return (deviation > 0 ? late : early) < getChange() / 2;
}

double TickLine::getChange() const { return CHANGED * jitter + LEAST_CHANGE; }

void TickLine::begin(double time)
{
    memory = 0;
    doubts = 0;
    ++beginnings;
    heard[0] = {counted, time};
    heardCount = 1;
    take({counted + 1, time});
}

/// The gains of the least-squares line through `memory` points (a growing-memory filter of the first degree).
void TickLine::take(const Tick& tick)
{
    const auto steps = memory > 0 ? static_cast<double>(tick.number - counted) : 1.0;
    memory = std::min(memory + 1, MEMORY);
    const double pairs = memory * (memory + 1.0);
    double deviation = memory > 1 ? tick.time - lineTime - steps * period : 0;
    lineTime = memory > 1 ? lineTime + steps * period : tick.time;
    counted = tick.number;
    kept[static_cast<std::size_t>(counted % KEPT)] = tick;
    if (memory > ENOUGH) {
        deviation = takeWhatDeviates(deviation);
    } else {
        late = early = 0;
        lastNotLate = lastNotEarly = counted;
    }
    lineTime += deviation * 2 * (2 * memory - 1) / pairs;
    period = std::max(period + deviation * 6 / pairs / steps, LEAST_PERIOD);
    if (late > getChange()) beginAtChange(lastNotLate + 1);
    if (early > getChange()) beginAtChange(lastNotEarly + 1);
}

/// Sums what goes one way and is more than the jitter; no single tick makes a change. Returns what to believe of it.
double TickLine::takeWhatDeviates(double deviation)
{
    const double most = getChange() / MORE_THAN_IN_A_ROW;
    late = std::max(0.0, late + std::min(deviation - jitter, most));
    early = std::max(0.0, early + std::min(-deviation - jitter, most));
    if (late <= 0) lastNotLate = counted;
    if (early <= 0) lastNotEarly = counted;
    const double believed = BELIEVED * jitter + LEAST_CHANGE;
    deviation = std::clamp(deviation, -believed, believed);
    const double uneven = UNEVENNESS * std::abs(deviation - std::exchange(lastDeviation, deviation));
    jitter = std::max(jitter + (uneven - jitter) / JITTER_MEMORY, LEAST_JITTER);
    return deviation;
}

void TickLine::beginAtChange(std::int64_t firstNumber)
{
    const std::int64_t last = counted;
    late = early = 0;
    memory = 0;
    for (std::int64_t number = std::max(firstNumber, last - KEPT + 1); number <= last; ++number) {
        const Tick next = kept[static_cast<std::size_t>(number % KEPT)];
        if (next.number == number) take(next);  // else it was lost
    }
}

void TickLine::doubt(double time, double interval)
{
    if (isEvenElsewhere()) {
        believeHeard();
        return;
    }
    const double steps = std::round((time - lineTime) / period);
    const bool isOnTheLine = steps >= 1 && std::abs(time - lineTime - steps * period) < ON_THE_LINE * period;
    const double offBeat = std::clamp(BELIEVED * jitter, LEAST_OFF_BEAT * period, FAR_OFF * period);
    if (isOnTheLine && std::abs(interval - period) < offBeat) {
        doubts = 0;
        take({counted + static_cast<std::int64_t>(steps), time});
        return;
    }
    suspects[static_cast<std::size_t>(doubts++ % SUSPECTS)] = time;
    if (doubts == MOST_DOUBTS) {
        counted += static_cast<std::int64_t>(std::max(steps, 1.0)) - 1;
        begin(time);
    } else if (doubts >= SUSPECTS && suspectsAgree()) {
        believeSuspects();
    }
}

bool TickLine::suspectsAgree() const
{
    double shortest = LONGEST_GAP;
    double longest = 0;
    for (int index = doubts - SUSPECTS + 1; index < doubts; ++index) {
        const double interval = suspects[static_cast<std::size_t>(index % SUSPECTS)] -
                                suspects[static_cast<std::size_t>((index - 1) % SUSPECTS)];
        shortest = std::min(shortest, interval);
        longest = std::max(longest, interval);
    }
    return longest < MOST_UNEVEN * shortest;
}

/// Another tempo: each of them is a tick.
void TickLine::believeSuspects()
{
    const int end = doubts;
    doubts = 0;
    memory = 0;
    counted += end - SUSPECTS;
    for (int index = end - SUSPECTS; index < end; ++index)
        take({counted + 1, suspects[static_cast<std::size_t>(index % SUSPECTS)]});
}

/// What was heard last is an even clock of another tempo, though some of it fell on the line.
bool TickLine::isEvenElsewhere() const
{
    if (heardCount < HEARD) return false;
    const double mean = (heard.back().time - heard.front().time) / (HEARD - 1);
    if (std::abs(mean - period) < LEAST_OFF_BEAT * period) return false;
    const double most = std::clamp(BELIEVED * jitter, LEAST_UNEVEN * mean, FAR_OFF * mean);
    return std::adjacent_find(heard.begin(), heard.end(), [&](const Tick& one, const Tick& next) {
               return std::abs(next.time - one.time - mean) > most;
           }) == heard.end();
}

void TickLine::believeHeard()
{
    doubts = 0;
    memory = 0;
    counted = heard.front().number;
    for (const Tick& tick : heard) take({counted + 1, tick.time});
    heardCount = 0;
}
}  // namespace Host
