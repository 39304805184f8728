#pragma once

#include <array>
#include <cstdint>

namespace Host
{
/// A second-order phase-locked loop for the ticks of a MIDI clock: it estimates the time of the last tick and the
/// period from ticks with jitter. Its gains are those of a least-squares line through all ticks since it started, for
/// the fastest settling, until these are `MEMORY` ticks (two beats); from then on the gains are constant.
///
/// Consecutive ticks that are all late, or all early, mean that the tempo has changed: the loop restarts at the first
/// of them. A single late or early tick has little effect. A lost tick is counted as soon as the next ones are in time;
/// a duplicate is not counted. After a gap of more than `LONGEST_GAP` the loop restarts.
///
/// Times are in seconds of any clock; a time before the last one counts as the last one. Allocates nothing and takes
/// bounded time for any input.
class TickPll
{
public:
    static constexpr int MEMORY = 48;            ///< ticks
    static constexpr int ENOUGH = 6;             ///< ticks until it is locked
    static constexpr double LONGEST_GAP = 0.16;  ///< seconds; at 20 beats per minute ticks are 0.125 apart

    void tick(double time);

    /// The next tick is the first of a new clock.
    void restart() { memory = 0; }

    /// Sets the state: tick `number` is at `time`, and the period is `seconds`.
    void set(std::int64_t number, double time, double seconds);

    /// There were enough ticks for a tempo.
    bool isLocked() const { return memory >= ENOUGH; }

    /// Ticks counted so far, restarts included.
    std::int64_t getCount() const { return counted; }

    /// How often it started after a gap or `restart`.
    std::int64_t getRestarts() const { return restarts; }

    /// The estimated time of the last counted tick.
    double getTime() const { return estimate; }

    /// The estimated time from one tick to the next.
    double getPeriod() const { return period; }

    /// The time at which the last tick arrived.
    double getLastTick() const { return lastTick; }

private:
    struct Tick {
        std::int64_t number;
        double time;
    };

    void start(double time);
    void count(const Tick& tick);
    bool isOutlier(double deviation) const;
    double limitDeviation(double deviation);
    double changeThreshold() const;
    void restartAtChange(std::int64_t firstNumber);
    void processOutlier(double time, double interval);
    bool areOutliersEven() const;
    void countOutliers();
    bool isOtherTempo() const;
    void countHistory();

    int memory = 0;  // ticks that determine the gains, at most MEMORY
    std::int64_t counted = 0;
    std::int64_t restarts = 0;
    double estimate = 0;
    double period = 0;
    double lastTick = 0;

    // Mean deviation in seconds, from the difference of consecutive deviations, which does not depend on the tempo
    double jitter = 0.001;
    double lastDeviation = 0;

    // The sums of consecutive late, and early, deviations, and the last tick before they began
    double late = 0;
    double early = 0;
    std::int64_t lastNotLate = 0;
    std::int64_t lastNotEarly = 0;

    static constexpr std::int64_t KEPT = 16;
    std::array<Tick, KEPT> kept{};  // the last counted ticks, by number

    // Outliers: ticks of another tempo, duplicates, or ticks after lost ones
    static constexpr int OUTLIERS = 4;
    static constexpr int MOST_OUTLIERS = 12;
    std::array<double, OUTLIERS> outliers{};
    int outlierCount = 0;

    // The last ticks that arrived, counted or not, oldest first, each with the count before it
    static constexpr std::size_t HISTORY = 9;
    std::array<Tick, HISTORY> history{};
    std::size_t historyCount = 0;
};
}  // namespace Host
