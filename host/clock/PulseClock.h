#pragma once

#include <cmath>
#include <cstdint>

namespace Host
{
/// When pulses fall, 480 to the quarter note, measured in the ticks of whatever clock the host has: audio frames or
/// nanoseconds. Whole numbers throughout: a pulse is cut into a thousand times `ticksPerSecond` parts, of which a tick
/// passes eight for each thousandth of a beat per minute, so that an hour is as exact as a second. A new tempo holds
/// from the next pulse on.
class PulseClock
{
public:
    /// 1 to 10^9 ticks per second. The first pulse falls now.
    explicit PulseClock(std::int64_t ticksPerSecond) : partsPerPulse(ticksPerSecond * THOUSANDTHS) {}

    /// Ticks from now to the next pulse, rounded up; 0 or less if it has come.
    std::int64_t ticksToPulse() const
    {
        return partsLeft <= 0 ? partsLeft / partsPerTick : (partsLeft + partsPerTick - 1) / partsPerTick;
    }

    /// The pulse was played; the one behind it follows at `bpm`, 1 to 1000, of which three decimals count.
    void passPulse(double bpm)
    {
        const std::int64_t newPartsPerTick = std::llround(bpm * THOUSANDTHS) * PULSES_PER_BEAT / SECONDS_PER_MINUTE;
        if (newPartsPerTick != partsPerTick)
            partsLeft =
                partsLeft / partsPerTick * newPartsPerTick + partsLeft % partsPerTick * newPartsPerTick / partsPerTick;
        partsPerTick = newPartsPerTick;
        partsLeft += partsPerPulse;
    }

    /// Stands where another clock stands between two pulses, which may have other ticks.
    void continueFrom(const PulseClock& other)
    {
        const double pulsesLeft = static_cast<double>(other.partsLeft) / static_cast<double>(other.partsPerPulse);
        partsLeft = static_cast<std::int64_t>(pulsesLeft * static_cast<double>(partsPerPulse));
        partsPerTick = other.partsPerTick;
    }

    /// Time went on.
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
