#include "host/clock/TickPll.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace Host
{
namespace
{
// In periods
constexpr double OUTLIER = 0.45;
constexpr double IN_TIME = 0.3;
constexpr double LEAST_TOLERANCE = 0.1;  // of an interval
constexpr double LEAST_UNEVEN = 0.25;
constexpr double MOST_UNEVEN = 1.8;  // ratio of the longest to the shortest interval of an even clock

constexpr int TICKS_TO_REJECT = 3;  // with fewer, no tick is an outlier
constexpr double JITTER_MEMORY = 32;
constexpr double UNEVENNESS = 0.75;       // of uniform jitter: its mean divided by the mean difference of two values
constexpr double LEAST_JITTER = 0.00005;  // seconds
constexpr double LEAST_PERIOD = 0.0002;   // seconds; a byte on a MIDI cable takes 0.00032

// In multiples of the jitter
constexpr double LARGEST_DEVIATION = 4;
constexpr double CHANGED = 8;
constexpr double LEAST_CHANGE = 0.001;
constexpr double TICKS_FOR_A_CHANGE = 2.9;
}  // namespace

void TickPll::tick(double time)
{
    time = std::max(time, lastTick);
    const double interval = time - lastTick;
    lastTick = time;
    if (historyCount == HISTORY)
        std::shift_left(history.begin(), history.end(), 1);
    else
        ++historyCount;
    history[historyCount - 1] = {counted, time};
    if (memory == 0 || interval > LONGEST_GAP)
        start(time);
    else if (outlierCount > 0 || isOutlier(time - estimate - period))
        processOutlier(time, interval);
    else
        count({counted + 1, time});
}

void TickPll::set(std::int64_t number, double time, double seconds)
{
    memory = MEMORY;
    outlierCount = 0;
    counted = number;
    estimate = time;
    period = seconds;
}

/// A tick after others that were late, or early, in the same way belongs to another tempo and is no outlier.
bool TickPll::isOutlier(double deviation) const
{
    if (memory < TICKS_TO_REJECT || std::abs(deviation) < OUTLIER * period) return false;
    return (deviation > 0 ? late : early) < changeThreshold() / 2;
}

double TickPll::changeThreshold() const { return CHANGED * jitter + LEAST_CHANGE; }

void TickPll::start(double time)
{
    memory = 0;
    outlierCount = 0;
    ++restarts;
    history[0] = {counted, time};
    historyCount = 1;
    count({counted + 1, time});
}

/// The gains are those of the least-squares line through `memory` points (a first-degree growing-memory filter).
void TickPll::count(const Tick& tick)
{
    const auto steps = memory > 0 ? static_cast<double>(tick.number - counted) : 1.0;
    memory = std::min(memory + 1, MEMORY);
    const double pairs = memory * (memory + 1.0);
    double deviation = memory > 1 ? tick.time - estimate - steps * period : 0;
    estimate = memory > 1 ? estimate + steps * period : tick.time;
    counted = tick.number;
    kept[static_cast<std::size_t>(counted % KEPT)] = tick;
    if (memory > ENOUGH) {
        deviation = limitDeviation(deviation);
    } else {
        late = early = 0;
        lastNotLate = lastNotEarly = counted;
    }
    estimate += deviation * 2 * (2 * memory - 1) / pairs;
    period = std::max(period + deviation * 6 / pairs / steps, LEAST_PERIOD);
    if (late > changeThreshold()) restartAtChange(lastNotLate + 1);
    if (early > changeThreshold()) restartAtChange(lastNotEarly + 1);
}

/// Adds up consecutive deviations in one direction that exceed the jitter; a single tick is never taken as a change of
/// tempo. Returns the deviation within the limits.
double TickPll::limitDeviation(double deviation)
{
    const double most = changeThreshold() / TICKS_FOR_A_CHANGE;
    late = std::max(0.0, late + std::min(deviation - jitter, most));
    early = std::max(0.0, early + std::min(-deviation - jitter, most));
    if (late <= 0) lastNotLate = counted;
    if (early <= 0) lastNotEarly = counted;
    const double largest = LARGEST_DEVIATION * jitter + LEAST_CHANGE;
    deviation = std::clamp(deviation, -largest, largest);
    const double uneven = UNEVENNESS * std::abs(deviation - std::exchange(lastDeviation, deviation));
    jitter = std::max(jitter + (uneven - jitter) / JITTER_MEMORY, LEAST_JITTER);
    return deviation;
}

void TickPll::restartAtChange(std::int64_t firstNumber)
{
    const std::int64_t last = counted;
    late = early = 0;
    memory = 0;
    for (std::int64_t number = std::max(firstNumber, last - KEPT + 1); number <= last; ++number) {
        const Tick next = kept[static_cast<std::size_t>(number % KEPT)];
        if (next.number == number) count(next);  // otherwise the tick was lost
    }
}

void TickPll::processOutlier(double time, double interval)
{
    if (isOtherTempo()) {
        countHistory();
        return;
    }
    const double steps = std::round((time - estimate) / period);
    const bool isInTime = steps >= 1 && std::abs(time - estimate - steps * period) < IN_TIME * period;
    const double tolerance = std::clamp(LARGEST_DEVIATION * jitter, LEAST_TOLERANCE * period, OUTLIER * period);
    if (isInTime && std::abs(interval - period) < tolerance) {
        outlierCount = 0;
        count({counted + static_cast<std::int64_t>(steps), time});
        return;
    }
    outliers[static_cast<std::size_t>(outlierCount++ % OUTLIERS)] = time;
    if (outlierCount == MOST_OUTLIERS) {
        counted += static_cast<std::int64_t>(std::max(steps, 1.0)) - 1;
        start(time);
    } else if (outlierCount >= OUTLIERS && areOutliersEven()) {
        countOutliers();
    }
}

bool TickPll::areOutliersEven() const
{
    double shortest = LONGEST_GAP;
    double longest = 0;
    for (int index = outlierCount - OUTLIERS + 1; index < outlierCount; ++index) {
        const double interval = outliers[static_cast<std::size_t>(index % OUTLIERS)] -
                                outliers[static_cast<std::size_t>((index - 1) % OUTLIERS)];
        shortest = std::min(shortest, interval);
        longest = std::max(longest, interval);
    }
    return longest < MOST_UNEVEN * shortest;
}

/// The outliers are ticks of another tempo.
void TickPll::countOutliers()
{
    const int end = outlierCount;
    outlierCount = 0;
    memory = 0;
    counted += end - OUTLIERS;
    for (int index = end - OUTLIERS; index < end; ++index)
        count({counted + 1, outliers[static_cast<std::size_t>(index % OUTLIERS)]});
}

/// The last ticks are evenly spaced at another tempo, although some of them were in time for the present one.
bool TickPll::isOtherTempo() const
{
    if (historyCount < HISTORY) return false;
    const double mean = (history.back().time - history.front().time) / (HISTORY - 1);
    if (std::abs(mean - period) < LEAST_TOLERANCE * period) return false;
    const double most = std::clamp(LARGEST_DEVIATION * jitter, LEAST_UNEVEN * mean, OUTLIER * mean);
    return std::adjacent_find(history.begin(), history.end(), [&](const Tick& one, const Tick& next) {
               return std::abs(next.time - one.time - mean) > most;
           }) == history.end();
}

void TickPll::countHistory()
{
    outlierCount = 0;
    memory = 0;
    counted = history.front().number;
    for (const Tick& tick : history) count({counted + 1, tick.time});
    historyCount = 0;
}
}  // namespace Host
