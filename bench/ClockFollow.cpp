// How well an external MIDI clock is followed, in virtual time, so that the figures repeat exactly:
// `build/release/bin/bench_clock_follow`.

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "tests/host/ClockMaster.h"

using Host::ClockFollower;
using Host::Testing::ClockMaster;
using Host::Testing::uniformJitter;

namespace
{
constexpr int BEAT = ClockFollower::TICKS_PER_BEAT;
constexpr int SEEDS = 20;

double milliseconds(double pulses, double bpm) { return pulses / (8 * bpm) * 1000; }

/// Prints the largest errors of the measured tempo, of the tempo of the pulses and of their phase in a steady clock;
/// the worst of twenty runs of a minute.
void printWander(double bpm, double jitter)
{
    double measured = 0;
    double played = 0;
    double phase = 0;
    for (unsigned int seed = 1; seed <= SEEDS; ++seed) {
        ClockMaster master;
        master.jitter = uniformJitter(jitter, seed);
        master.play(16 * BEAT, bpm);
        const std::int64_t tick = std::lround(master.ahead(0) / ClockFollower::PULSES_PER_TICK);
        master.afterPulse = [&] {
            measured = std::max(measured, std::abs(master.follower.getTempo() - bpm));
            played = std::max(played, std::abs(master.effectiveTempo - bpm));
        };
        for (int beat = 0; beat < bpm; ++beat) {
            master.play(BEAT, bpm);
            phase = std::max(phase, milliseconds(std::abs(master.ahead(tick)), bpm));
        }
    }
    std::printf("%3.0f bpm, jitter %.0f ms: measured within %.3f bpm, played within %.3f bpm and %.2f ms\n", bpm,
                jitter * 1000, measured, played, phase);
}

/// Prints how many beats after a change the measured tempo is within half a beat per minute, and the pulses are within
/// three milliseconds; the worst of twenty runs.
void printSettling(double from, double to, double jitter)
{
    double tempo = 0;
    double phase = 0;
    for (unsigned int seed = 1; seed <= SEEDS; ++seed) {
        ClockMaster master;
        master.jitter = uniformJitter(jitter, seed);
        master.play(16 * BEAT, from);
        const std::int64_t before = std::lround(master.ahead(0) / ClockFollower::PULSES_PER_TICK);
        const double changed = master.now;
        const auto beats = [&] { return (master.now - changed) * to / 60; };
        master.afterPulse = [&] {
            if (std::abs(master.follower.getTempo() - to) > 0.5) tempo = std::max(tempo, beats());
        };
        for (int tick = 1; tick <= 16 * BEAT; ++tick) {
            master.play(1, to);
            if (milliseconds(std::abs(master.ahead(before + tick)), to) > 3) phase = std::max(phase, beats());
        }
    }
    std::printf("%3.0f to %3.0f bpm, jitter %.0f ms: tempo settled in %.2f beats, phase in %.2f\n", from, to,
                jitter * 1000, tempo, phase);
}
/// Prints the largest errors of the measured tempo and of the phase while the tempo rises; the worst of twenty runs.
void printAccelerando(double bpmPerBeat, double jitter)
{
    double measured = 0;
    double phase = 0;
    for (unsigned int seed = 1; seed <= SEEDS; ++seed) {
        ClockMaster master;
        master.jitter = uniformJitter(jitter, seed);
        master.play(16 * BEAT, 80);
        const std::int64_t before = std::lround(master.ahead(0) / ClockFollower::PULSES_PER_TICK);
        for (int tick = 1; tick <= 24 * BEAT; ++tick) {
            const double bpm = 80 + bpmPerBeat * tick / BEAT;
            master.play(1, bpm);
            measured = std::max(measured, std::abs(master.follower.getTempo() - bpm));
            phase = std::max(phase, milliseconds(std::abs(master.ahead(before + tick)), bpm));
        }
    }
    std::printf("from 80 by %.1f bpm a beat, jitter %.0f ms: measured within %.2f bpm, played within %.1f ms\n",
                bpmPerBeat, jitter * 1000, measured, phase);
}
}  // namespace

int main()
{
    for (const double jitter : {0.001, 0.003})
        for (const double bpm : {20.0, 60.0, 120.0, 180.0, 250.0}) printWander(bpm, jitter);
    for (const double jitter : {0.0, 0.001, 0.003})
        for (const auto& [from, to] : {std::pair{60.0, 180.0},
                                       {180.0, 60.0},
                                       {120.0, 121.0},
                                       {120.0, 124.0},
                                       {120.0, 160.0},
                                       {80.0, 100.0},
                                       {120.0, 60.0},
                                       {60.0, 120.0}})
            printSettling(from, to, jitter);
    for (const double jitter : {0.0, 0.001, 0.003})
        for (const double bpmPerBeat : {0.1, 0.5, 2.0, 4.0}) printAccelerando(bpmPerBeat, jitter);
}
