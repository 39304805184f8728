#pragma once

#include <cmath>
#include <cstdint>

namespace Host
{
/// Computes when pulses fall, 480 per quarter note, in ticks of a time base: audio frames or nanoseconds. The
/// arithmetic is integer, so that no error accumulates: a pulse has a thousand times `ticksPerSecond` parts, of which a
/// tick counts eight for each thousandth of a beat per minute. A new tempo takes effect with the next pulse.
class PulseClock
{
public:
    /// 1 to 10^9 ticks per second. The first pulse is due at once.
    explicit PulseClock(std::int64_t ticksPerSecond) : partsPerPulse(ticksPerSecond * THOUSANDTHS) {}

    /// Ticks from now to the next pulse, rounded up; 0 or less if it is due.
    std::int64_t ticksToPulse() const
    {
        return partsLeft <= 0 ? partsLeft / partsPerTick : (partsLeft + partsPerTick - 1) / partsPerTick;
    }

    /// The pulse was played, and the next one follows at a tempo of `bpm`, 1 to 1000, rounded to three decimals.
    void passPulse(double bpm)
    {
        const std::int64_t newPartsPerTick = std::llround(bpm * THOUSANDTHS) * PULSES_PER_BEAT / SECONDS_PER_MINUTE;
        if (newPartsPerTick != partsPerTick)
            partsLeft =
                partsLeft / partsPerTick * newPartsPerTick + partsLeft % partsPerTick * newPartsPerTick / partsPerTick;
        partsPerTick = newPartsPerTick;
        partsLeft += partsPerPulse;
    }

    /// Takes the position between two pulses from another clock, which may have another time base.
    void continueFrom(const PulseClock& other)
    {
        const double pulsesLeft = static_cast<double>(other.partsLeft) / static_cast<double>(other.partsPerPulse);
        partsLeft = static_cast<std::int64_t>(pulsesLeft * static_cast<double>(partsPerPulse));
        partsPerTick = other.partsPerTick;
    }

    /// That much time passed.
    void passTicks(std::int64_t ticks) { partsLeft -= ticks * partsPerTick; }

private:
    static constexpr int PULSES_PER_BEAT = 480;
    static constexpr int SECONDS_PER_MINUTE = 60;
    static constexpr int THOUSANDTHS = 1000;

    const std::int64_t partsPerPulse;
    std::int64_t partsPerTick = 1;
    std::int64_t partsLeft = 0;
};
}  // namespace Host
