#pragma once

#include <cstdint>

#include "host/clock/TickPll.h"

namespace Host
{
/// Follows a MIDI clock: fed with its messages and their times, it says how fast the host's pulses follow each other,
/// so that 20 of them, a tick, take as long as a tick of that clock and fall where it falls. It knows no device and no
/// time of its own; one thread.
///
/// The pulse counter never jumps. Where a pulse is not where it should be, pulses come a little faster or slower, by a
/// quarter at most, until it is: of a small error two thirds are gone in three quarters of a second. What should be: a
/// tick falls on a pulse that divides by 20, the nearest one when the clock is first heard. The first start that is
/// heard fixes which of them are beats; behind every other start, or a continue, the beats fall there again, so that an
/// arpeggio that is held through it is in phase with the song as before.
///
/// A clock that stops leaves its last tempo. Tempos from 20 to 250 beats per minute are followed; one that is not
/// farther outside than jitter makes it seem is followed as 20 or 250, any other is not heard at all.
class ClockFollower
{
public:
    static constexpr int PULSES_PER_TICK = 20;
    static constexpr int TICKS_PER_BEAT = 24;
    static constexpr int TICKS_PER_SIXTEENTH = 6;  ///< of a song position, MIDI 1.0 "Song Position Pointer"
    static constexpr double LOWEST_TEMPO = 20;
    static constexpr double HIGHEST_TEMPO = 250;

    /// Forgets the clock; the tempo stays until another is heard. `bpm` is that tempo.
    void listenAfresh(double bpm);

    // Messages, in their order. Times are seconds, as of `TickLine`.

    void tick(double time);
    void start() { goOn(0); }
    void continueSong() { goOn(isRunning ? songPosition() + 1 : stoppedAt); }
    void stop();

    /// Instead of messages: a song that runs is `beats` quarter notes from its beginning at that time, and goes on at
    /// `bpm`, which is in the range.
    void followSong(double time, double beats, double bpm);

    /// Where a continue goes on, in sixteenths from the song's beginning, 0 to 16383. Nothing while the song runs.
    void setSongPosition(int sixteenths);

    /// Pulse `pulse` of a counter that only grows is played at that time; returns the tempo, in beats per minute, at
    /// which the one behind it follows.
    double passPulse(std::int64_t pulse, double time);

    /// A clock is being heard at that time.
    bool isHeard(double time) const;

    /// The tempo that was last heard, beats per minute, without what works an error off.
    double getTempo() const { return tempo; }

    // For whoever sends a clock on: in it nothing is worked off.

    /// How far the last pulse was behind where it should be, in pulses.
    double getError() const { return error; }

    /// How often pulses were told where they should be anew.
    std::int64_t getPhases() const { return phases; }

    /// The pulse on which a tick should fall. Ticks are counted on and on; the first of a song is that of
    /// `getSongStart`, for one that is told with `followSong` the beginning is tick 0.
    double pulseOf(std::int64_t tick) const { return firstPulse + PULSES_PER_TICK * static_cast<double>(tick); }
    std::int64_t getSongStart() const { return songStart; }

private:
    static constexpr double PULSES_PER_BEAT = PULSES_PER_TICK * TICKS_PER_BEAT;

    void goOn(std::int64_t position);
    std::int64_t songPosition() const { return line.getCount() + songOffset; }
    double tickAt(double time) const;
    double pulseAt(double time) const;
    void findPhase();

    TickLine line;
    std::int64_t lineBegun = 0;
    double tempo = 120;
    bool follows = false;
    bool isTold = false;  // by `followSong`

    // Tick n falls on pulse n * 20 + firstPulse.
    bool inPhase = false;
    double firstPulse = 0;
    double error = 0;
    std::int64_t phases = 0;

    // Where the song is: tick n is its tick n + songOffset
    bool isRunning = false;
    bool knowsSong = false;
    std::int64_t songOffset = 0;
    std::int64_t songStart = 0;
    std::int64_t stoppedAt = 0;

    // A beat falls this many pulses behind each that divides by 480; -1 as long as no song began
    double beatPulse = -1;
};
}  // namespace Host
