#pragma once

#include <cstdint>

#include "host/clock/TickPll.h"

namespace Host
{
/// Synchronises the host's pulses with an external MIDI clock: it gets the messages of the clock with their times and
/// computes the tempo of each pulse, so that 20 pulses take as long as a tick and coincide with it. It uses no device
/// and no system time; one thread.
///
/// The pulse counter never jumps. A phase error is corrected by a tempo that is up to a quarter faster or slower; two
/// thirds of a small error are corrected in 0.75 seconds. The reference: ticks fall on pulses that divide by 20, at
/// first on the nearest. The first start determines which of these pulses are beats; after a later start or continue
/// the pulses are brought back to the same beats, so that a held arpeggio keeps its phase to the song.
///
/// After the clock stops, its last tempo remains. Tempos from 20 to 250 beats per minute are followed. A measured tempo
/// just outside, within the error that jitter causes, counts as 20 or 250; a clock with any other tempo is ignored.
class ClockFollower
{
public:
    static constexpr int PULSES_PER_TICK = 20;
    static constexpr int TICKS_PER_BEAT = 24;
    static constexpr int TICKS_PER_SIXTEENTH = 6;  ///< the unit of a song position (MIDI 1.0, "Song Position Pointer")
    static constexpr double LOWEST_TEMPO = 20;
    static constexpr double HIGHEST_TEMPO = 250;

    /// Restarts for another clock. Until that has a tempo, the tempo is `bpm`.
    void reset(double bpm);

    // The messages of the clock, in their order. Times are in seconds, as for `TickPll`.

    void tick(double time);
    void start() { resumeAt(0); }
    void continueSong() { resumeAt(isRunning ? songPosition() + 1 : stoppedAt); }
    void stop();

    /// Instead of messages: a song runs, its position at that time is `beats` quarter notes, and its tempo is `bpm`, 20
    /// to 250.
    void setSong(double time, double beats, double bpm);

    /// The position of the next continue, in sixteenths from the beginning, 0 to 16383. Ignored while the song runs.
    void setSongPosition(int sixteenths);

    /// Pulse number `pulse`, which increases with each call, is played at that time. Returns the tempo at which the
    /// next pulse follows, in beats per minute.
    double passPulse(std::int64_t pulse, double time);

    /// The clock runs at that time, with a tempo that can be followed.
    bool isActive(double time) const;

    /// The last tempo of the clock, in beats per minute, without the correction of a phase error.
    double getTempo() const { return tempo; }

    // For forwarding the clock without the correction of phase errors

    /// The phase error of the last pulse, in pulses; above 0 if the pulse was late.
    double getError() const { return error; }

    /// How often the reference of the phase has been set.
    std::int64_t getAlignments() const { return alignments; }

    /// The pulse on which a tick should fall. Ticks are counted from the first one received; the first tick of a song
    /// is `getSongStart`, or 0 for a song given by `setSong`.
    double pulseOf(std::int64_t tick) const { return firstPulse + PULSES_PER_TICK * static_cast<double>(tick); }
    std::int64_t getSongStart() const { return songStart; }

private:
    static constexpr double PULSES_PER_BEAT = PULSES_PER_TICK * TICKS_PER_BEAT;

    void resumeAt(std::int64_t position);
    std::int64_t songPosition() const { return pll.getCount() + songOffset; }
    double tickAt(double time) const;
    double pulseAt(double time) const;
    void alignPhase();

    TickPll pll;
    std::int64_t pllRestarts = 0;
    double tempo = 120;
    bool hasTempo = false;
    bool isSongSet = false;  // by `setSong`

    // Tick n falls on pulse n * 20 + firstPulse.
    bool inPhase = false;
    double firstPulse = 0;
    double error = 0;
    std::int64_t alignments = 0;

    // The song: tick n of the clock is tick n + songOffset of the song
    bool isRunning = false;
    bool knowsSong = false;
    std::int64_t songOffset = 0;
    std::int64_t songStart = 0;
    std::int64_t stoppedAt = 0;

    // Beats fall this many pulses after the multiples of 480; -1 before the first start
    double beatPulse = -1;
};
}  // namespace Host
