#include "host/clock/ClockFollower.h"

#include <algorithm>
#include <cmath>

namespace Host
{
namespace
{
constexpr double SECONDS_PER_MINUTE = 60;
constexpr double TIME_TO_WORK_OFF = 0.75;  // seconds
constexpr double MOST_DEVIATION = 0.25;    // of the tempo
constexpr double SAME_PLACE = 0.5;         // in ticks
constexpr double SEEMING_LOWEST = 19.5;
constexpr double SEEMING_HIGHEST = 252;

double nearestMultiple(double value, double of) { return std::round(value / of) * of; }
}  // namespace

void ClockFollower::listenAfresh(double bpm)
{
    line.forget();
    tempo = bpm;
    follows = isTold = inPhase = knowsSong = isRunning = false;
    stoppedAt = 0;
    beatPulse = -1;
}

void ClockFollower::tick(double time)
{
    line.tick(time);
    if (line.getBeginnings() != lineBegun) {
        // How much of the song was missed nobody knows, unless it begins just now.
        if (!isRunning || songPosition() != stoppedAt) knowsSong = false;
        lineBegun = line.getBeginnings();
        follows = inPhase = false;
    }
    if (!line.isSteady()) return;
    const double heard = SECONDS_PER_MINUTE / (TICKS_PER_BEAT * line.getPeriod());
    follows = heard >= SEEMING_LOWEST && heard <= SEEMING_HIGHEST;
    if (follows) tempo = std::clamp(heard, LOWEST_TEMPO, HIGHEST_TEMPO);
}

/// The next tick is tick `position` of the song.
void ClockFollower::goOn(std::int64_t position)
{
    stoppedAt = position;
    songStart = line.getCount() + 1;
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

void ClockFollower::followSong(double time, double beats, double bpm)
{
    const double tick = beats * TICKS_PER_BEAT;
    const bool goesOn = isTold && std::abs(tickAt(time) - tick) < SAME_PLACE;
    const double period = SECONDS_PER_MINUTE / bpm / TICKS_PER_BEAT;
    const double whole = std::floor(tick);
    line.lay(static_cast<std::int64_t>(whole), time - (tick - whole) * period, period);
    songOffset = 0;
    tempo = bpm;
    inPhase = inPhase && goesOn;
    isTold = follows = isRunning = knowsSong = true;
}

bool ClockFollower::isHeard(double time) const
{
    return follows && (isTold || time - line.getLastHeard() < TickLine::LONGEST_GAP);
}

double ClockFollower::tickAt(double time) const
{
    return static_cast<double>(line.getCount()) + (time - line.getTime()) / line.getPeriod();
}

double ClockFollower::pulseAt(double time) const { return firstPulse + PULSES_PER_TICK * tickAt(time); }

double ClockFollower::passPulse(std::int64_t pulse, double time)
{
    if (!line.isSteady() || !isHeard(time)) return tempo;
    error = pulseAt(time) - static_cast<double>(pulse);
    const bool skipped = std::abs(error) > PULSES_PER_BEAT / 2;
    if (!inPhase || skipped) {
        const double before = firstPulse;
        if (inPhase)
            firstPulse -= nearestMultiple(error, PULSES_PER_BEAT);
        else
            findPhase();
        error += firstPulse - before;
        ++phases;
    }
    const double seconds = error / PULSES_PER_BEAT * SECONDS_PER_MINUTE / tempo;
    return tempo * (1 + std::clamp(seconds / TIME_TO_WORK_OFF, -MOST_DEVIATION, MOST_DEVIATION));
}

/// Moves the line by as little as can be so that ticks fall on ticks, and beats on beats if they are known.
void ClockFollower::findPhase()
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
