#include "host/clock/ClockFollower.h"

#include <algorithm>
#include <cmath>

namespace Host
{
namespace
{
constexpr double SECONDS_PER_MINUTE = 60;
constexpr double CORRECTION_TIME = 0.75;  // seconds
constexpr double MOST_DEVIATION = 0.25;   // of the tempo
constexpr double SAME_POSITION = 0.5;     // in ticks
constexpr double LOWEST_MEASURED = 19.5;
constexpr double HIGHEST_MEASURED = 252;

double nearestMultiple(double value, double of) { return std::round(value / of) * of; }
}  // namespace

void ClockFollower::reset(double bpm)
{
    pll.restart();
    tempo = bpm;
    hasTempo = isSongSet = inPhase = knowsSong = isRunning = false;
    stoppedAt = 0;
    beatPulse = -1;
}

void ClockFollower::tick(double time)
{
    pll.tick(time);
    if (pll.getRestarts() != pllRestarts) {
        // The position in the song is unknown, unless the song begins with this tick.
        if (!isRunning || songPosition() != stoppedAt) knowsSong = false;
        pllRestarts = pll.getRestarts();
        hasTempo = inPhase = false;
    }
    if (!pll.isLocked()) return;
    const double measured = SECONDS_PER_MINUTE / (TICKS_PER_BEAT * pll.getPeriod());
    hasTempo = measured >= LOWEST_MEASURED && measured <= HIGHEST_MEASURED;
    if (hasTempo) tempo = std::clamp(measured, LOWEST_TEMPO, HIGHEST_TEMPO);
}

/// The next tick is tick `position` of the song.
void ClockFollower::resumeAt(std::int64_t position)
{
    stoppedAt = position;
    songStart = pll.getCount() + 1;
    songOffset = position - songStart;
    isRunning = knowsSong = true;
    inPhase = false;
}

void ClockFollower::stop()
{
    if (isRunning) stoppedAt = songPosition() + 1;
    isRunning = false;
}

void ClockFollower::setSongPosition(int sixteenths)
{
    if (!isRunning) stoppedAt = std::int64_t{sixteenths} * TICKS_PER_SIXTEENTH;
}

void ClockFollower::setSong(double time, double beats, double bpm)
{
    const double tick = beats * TICKS_PER_BEAT;
    const bool continues = isSongSet && std::abs(tickAt(time) - tick) < SAME_POSITION;
    const double period = SECONDS_PER_MINUTE / bpm / TICKS_PER_BEAT;
    const double whole = std::floor(tick);
    pll.set(static_cast<std::int64_t>(whole), time - (tick - whole) * period, period);
    songOffset = 0;
    tempo = bpm;
    inPhase = inPhase && continues;
    isSongSet = hasTempo = isRunning = knowsSong = true;
}

bool ClockFollower::isActive(double time) const
{
    return hasTempo && (isSongSet || time - pll.getLastTick() < TickPll::LONGEST_GAP);
}

double ClockFollower::tickAt(double time) const
{
    return static_cast<double>(pll.getCount()) + (time - pll.getTime()) / pll.getPeriod();
}

double ClockFollower::pulseAt(double time) const { return firstPulse + PULSES_PER_TICK * tickAt(time); }

double ClockFollower::passPulse(std::int64_t pulse, double time)
{
    if (!pll.isLocked() || !isActive(time)) return tempo;
    error = pulseAt(time) - static_cast<double>(pulse);
    const bool skipped = std::abs(error) > PULSES_PER_BEAT / 2;
    if (!inPhase || skipped) {
        const double before = firstPulse;
        if (inPhase)
            firstPulse -= nearestMultiple(error, PULSES_PER_BEAT);
        else
            alignPhase();
        error += firstPulse - before;
        ++alignments;
    }
    const double seconds = error / PULSES_PER_BEAT * SECONDS_PER_MINUTE / tempo;
    return tempo * (1 + std::clamp(seconds / CORRECTION_TIME, -MOST_DEVIATION, MOST_DEVIATION));
}

/// Sets the pulse of the first tick to the nearest one where ticks fall on multiples of 20 pulses and, if the position
/// in the song is known, beats fall on beats.
void ClockFollower::alignPhase()
{
    inPhase = true;
    const double wanted = firstPulse - error;
    const double song = PULSES_PER_TICK * static_cast<double>(songOffset);
    if (knowsSong && beatPulse >= 0) {
        firstPulse = beatPulse + song + nearestMultiple(wanted - beatPulse - song, PULSES_PER_BEAT);
        return;
    }
    firstPulse = nearestMultiple(wanted, PULSES_PER_TICK);
    if (!knowsSong) return;
    const double beat = std::fmod(firstPulse - song, PULSES_PER_BEAT);
    beatPulse = beat < 0 ? beat + PULSES_PER_BEAT : beat;
}
}  // namespace Host
