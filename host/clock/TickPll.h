#pragma once

#include <array>
#include <cstdint>

namespace Host
{
/// The straight line that the ticks of a MIDI clock lie on, seen through their jitter: a phase-locked loop of second
/// order. Its gains are those of the straight line through all ticks since the line began, so that it settles as fast
/// as can be, until it remembers `MEMORY` ticks (two beats); from then on they stay.
///
/// A tempo that changes shows as ticks that are late, or early, one after the other; the line then begins again where
/// they began to be. Single late or early ticks count little. A tick that was lost is counted once the next ones are
/// where they should be, one that was doubled is not counted. Behind a silence of more than `LONGEST_GAP` a new line
/// begins.
///
/// Times are seconds of any clock; a time before the last one counts as that one. Takes no memory and works in bounded
/// time whatever arrives.
class TickLine
{
public:
    static constexpr int MEMORY = 48;            ///< ticks
    static constexpr int ENOUGH = 6;             ///< ticks that make a tempo
    static constexpr double LONGEST_GAP = 0.16;  ///< seconds; at 20 beats per minute ticks are 0.125 apart

    void tick(double time);

    /// The next tick begins a new line.
    void forget() { memory = 0; }

    /// The line is known from elsewhere: tick `number` is at `time`, and each `seconds` behind the one before it.
    void lay(std::int64_t number, double time, double seconds);

    /// Enough ticks lie on the line to know its tempo.
    bool isSteady() const { return memory >= ENOUGH; }

    /// Ticks counted so far, of all lines.
    std::int64_t getCount() const { return counted; }

    /// How many lines have begun behind a silence or a `forget`.
    std::int64_t getBeginnings() const { return beginnings; }

    /// When the last counted tick should have come.
    double getTime() const { return lineTime; }

    /// Seconds from one tick to the next.
    double getPeriod() const { return period; }

    /// When the last tick did come.
    double getLastHeard() const { return lastHeard; }

private:
    struct Tick {
        std::int64_t number;
        double time;
    };

    void begin(double time);
    void take(const Tick& tick);
    bool isFarOff(double deviation) const;
    double takeWhatDeviates(double deviation);
    double getChange() const;
    void beginAtChange(std::int64_t firstNumber);
    void doubt(double time, double interval);
    bool suspectsAgree() const;
    void believeSuspects();
    bool isEvenElsewhere() const;
    void believeHeard();

    int memory = 0;  // ticks behind the gains, at most MEMORY
    std::int64_t counted = 0;
    std::int64_t beginnings = 0;
    double lineTime = 0;
    double period = 0;
    double lastHeard = 0;

    // Mean deviation, seconds: from the difference of two, which a tempo that changes leaves as they are
    double jitter = 0.001;
    double lastDeviation = 0;

    // How far ticks have been late, or early, in a row, and the last tick before they were
    double late = 0;
    double early = 0;
    std::int64_t lastNotLate = 0;
    std::int64_t lastNotEarly = 0;

    static constexpr std::int64_t KEPT = 16;
    std::array<Tick, KEPT> kept{};  // the last ticks, by number

    // Ticks that are far off the line: of another tempo, doubled, or behind some that were lost
    static constexpr int SUSPECTS = 4;
    static constexpr int MOST_DOUBTS = 12;
    std::array<double, SUSPECTS> suspects{};
    int doubts = 0;

    // What was heard last, counted or not, oldest first, each with the count before it
    static constexpr std::size_t HEARD = 9;
    std::array<Tick, HEARD> heard{};
    std::size_t heardCount = 0;
};
}  // namespace Host
