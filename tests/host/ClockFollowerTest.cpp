#include "host/clock/ClockFollower.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "tests/host/ClockMaster.h"

namespace Host
{
using Testing::ClockMaster;
using Testing::uniformJitter;

namespace
{
constexpr int BEAT = ClockFollower::TICKS_PER_BEAT;

/// The largest difference of the pulses' tempo from `bpm` during `play`.
template <class Play>
double deviation(ClockMaster& master, double bpm, Play&& play)
{
    double farthest = 0;
    master.afterPulse = [&] { farthest = std::max(farthest, std::abs(master.effectiveTempo - bpm)); };
    play();
    master.afterPulse = [] {};
    return farthest;
}

/// Beats from a change of tempo until the follower's tempo stays within half a beat per minute.
double beatsToSettle(ClockMaster& master, double bpm)
{
    const double changed = master.now;
    double settled = changed;
    master.afterPulse = [&] {
        if (std::abs(master.follower.getTempo() - bpm) > 0.5) settled = master.now;
    };
    master.play(16 * BEAT, bpm);
    master.afterPulse = [] {};
    return (settled - changed) * bpm / 60;
}
}  // namespace

TEST(ClockFollower, HasTheTempoOfTheClockWithinALimit)
{
    using Jitter = std::function<double(std::int64_t)>;
    const auto none = [](std::int64_t) { return 0.0; };
    const auto late = [even = uniformJitter(0.001)](std::int64_t tick) {
        return even(tick) + (tick % 60 == 0 ? 0.008 : 0);
    };
    const auto audioPeriods = [](std::int64_t tick) {
        const double ideal = static_cast<double>(tick + 1) * 60 / 120.0 / BEAT;
        return std::ceil(ideal / 0.00533) * 0.00533 - ideal;  // 256 frames
    };
    const struct {
        const char* name;
        Jitter jitter;
        std::vector<double> tempos;
        double limit, phase;
    } ROWS[] = {{"even", none, {20.0, 33.3, 60.0, 120.0, 133.7, 250.0}, 0.05, 0.5},
                {"a millisecond", uniformJitter(0.001, 1), {20.0, 60.0, 120.0, 180.0, 250.0}, 0.5, 2},
                {"other numbers", uniformJitter(0.001, 2), {20.0, 60.0, 120.0, 180.0, 250.0}, 0.5, 2},
                {"late now and then", late, {120}, 0.7, 2},
                {"audio periods", audioPeriods, {120}, 4, 6}};
    for (const auto& [name, jitter, tempos, limit, phase] : ROWS)
        for (const double bpm : tempos) {
            ClockMaster master;
            master.jitter = jitter;
            master.play(16 * BEAT, bpm);
            EXPECT_LT(deviation(master, bpm, [&] { master.play(static_cast<int>(bpm) * BEAT, bpm); }), limit)
                << name << ", " << bpm;
            EXPECT_NEAR(bpm == 120 ? master.ahead(0) : 0, 0, phase) << name << ", at the tempo where it began";
        }
}

TEST(ClockFollower, FollowsAChangeWithinTwoBeats)
{
    for (const double jitter : {0.0, 0.001})
        for (const unsigned int seed : {1u, 2u, 3u, 4u, 5u}) {
            ClockMaster master;
            master.jitter = uniformJitter(jitter, seed);
            master.play(16 * BEAT, 60);
            for (const double bpm : {180.0, 60.0, 120.0, 240.0, 80.0, 100.0, 104.0, 101.0, 20.0, 250.0, 125.0})
                EXPECT_LE(beatsToSettle(master, bpm), 2) << "to " << bpm << ", seed " << seed;
        }
}

TEST(ClockFollower, StaysInPhaseWithAChangingTempo)
{
    ClockMaster master;
    master.jitter = uniformJitter(0.001);
    master.play(4 * BEAT, 120);
    double farthest = 0;
    for (int beat = 4; beat < 200; ++beat) {
        master.play(BEAT, [beat](double) { return 120 + 30 * std::sin(beat / 10.0); });
        farthest = std::max(farthest, std::abs(master.ahead(0)));
    }
    EXPECT_LT(farthest, 60) << "an eighth of a beat while it changes three beats per minute at each beat";
    master.play(8 * BEAT, 120);
    EXPECT_LT(std::abs(master.ahead(0)), 2) << "and no tick was lost in 204 beats";
}

TEST(ClockFollower, CountsLostTicksAndNoDuplicates)
{
    const std::pair<const char*, std::function<int(std::int64_t)>> ROWS[] = {
        {"one lost now and then", [](std::int64_t tick) { return tick % 37 == 20 ? 0 : 1; }},
        {"two lost", [](std::int64_t tick) { return tick % 50 / 2 == 15 ? 0 : 1; }},
        {"one doubled now and then", [](std::int64_t tick) { return tick % 31 == 20 ? 2 : 1; }},
        {"all doubled", [](std::int64_t) { return 2; }}};
    for (const auto& [fault, copies] : ROWS) {
        ClockMaster master;
        master.jitter = uniformJitter(0.001);
        master.play(8 * BEAT, 120);
        EXPECT_NEAR(master.ahead(0), 0, 2) << fault;
        master.copies = copies;
        EXPECT_LT(deviation(master, 120, [&] { master.play(100 * BEAT, 120); }), 1) << fault;
        EXPECT_NEAR(master.ahead(0), 0, 2) << fault;
    }
}

TEST(ClockFollower, KeepsTheTempoOfAClockThatStops)
{
    ClockMaster master;
    master.play(8 * BEAT, 97);
    EXPECT_TRUE(master.follower.isActive(master.now));
    master.follower.stop();
    master.wait(1);
    EXPECT_FALSE(master.follower.isActive(master.now));
    const std::int64_t pulse = master.pulse;
    EXPECT_LT(deviation(master, 97, [&] { master.wait(60); }), 1e-6);
    EXPECT_NEAR(static_cast<double>(master.pulse - pulse), 97 * 480, 2);
}

TEST(ClockFollower, AlignsBeatsAfterEveryStartAndContinue)
{
    ClockMaster master;
    master.jitter = uniformJitter(0.0005);
    master.play(10 * BEAT + 7, 120);  // not yet started: any tick may be the beat
    master.follower.start();
    master.play(10 * BEAT, 120);
    const double beat = master.ahead(0);
    const auto expectBeat = [&](int ticksSinceBeat, const char* when) {
        EXPECT_NEAR(master.ahead(ticksSinceBeat + std::lround(beat / 20)), 0, 3) << when;
    };
    expectBeat(0, "at first");

    master.follower.stop();
    master.play(11, 120);
    master.follower.start();
    master.play(8 * BEAT, 120);
    expectBeat(0, "a stop with ticks going on, and a start");

    master.follower.stop();
    master.wait(1.234);
    master.follower.start();
    master.play(10 * BEAT + 5, 90);
    expectBeat(5, "a stop in silence, and a start at another tempo");

    master.follower.stop();
    master.wait(0.777);
    master.follower.continueSong();
    master.play(10 * BEAT, 90);
    expectBeat(5, "a continue where it stopped");

    master.follower.stop();
    master.wait(2.5);
    master.follower.setSongPosition(7);  // three sixteenths after a beat
    master.follower.continueSong();
    master.play(10 * BEAT, 90);
    expectBeat(18, "a continue somewhere else");
}

TEST(ClockFollower, CorrectsAPhaseErrorWithoutAJump)
{
    ClockMaster master;
    master.follower.start();
    master.play(8 * BEAT, 120);
    master.follower.stop();
    master.wait(0.26);  // about half a beat
    master.follower.start();
    EXPECT_LT(deviation(master, 120, [&] { master.play(8 * BEAT, 120); }), 30.5) << "a quarter of the tempo";
    EXPECT_NEAR(master.ahead(0), 0, 2);
}

TEST(ClockFollower, IgnoresTemposOutsideTheRange)
{
    for (const double bpm : {5.0, 15.0, 19.0, 260.0, 400.0, 5000.0}) {
        ClockMaster master;
        master.play(8 * BEAT, 120);
        master.play(20 * BEAT, bpm);
        EXPECT_FALSE(master.follower.isActive(master.now)) << bpm;
        EXPECT_NEAR(master.effectiveTempo, 120, 1e-6) << bpm;
        master.play(8 * BEAT, 120);
        EXPECT_TRUE(master.follower.isActive(master.now)) << bpm;
    }
    ClockMaster master;
    master.play(8 * BEAT, 250.8);
    EXPECT_DOUBLE_EQ(master.follower.getTempo(), 250);
}

TEST(ClockFollower, RandomInputLeavesATempoWithinTheRangeAndALaterClockIsFollowed)
{
    std::mt19937 generator(7);
    const auto random = [&] { return static_cast<int>(generator() % 16384); };
    ClockMaster master;
    for (int round = 0; round < 200; ++round) {
        for (int count = random() % 40; count > 0; --count) {
            const int kind = random() % 8;
            if (kind == 0) master.follower.start();
            if (kind == 1) master.follower.stop();
            if (kind == 2) master.follower.continueSong();
            if (kind == 3) master.follower.setSongPosition(random());
            if (kind == 4) master.wait(random() % 1000 / 3000.0);
            if (kind == 5) master.follower.tick(master.now - random() % 100 / 50.0);  // never back
            if (kind == 6) master.follower.tick(master.now);
            if (kind == 7) master.play(random() % 9, 10 + random() % 400);
        }
        ASSERT_GE(master.follower.getTempo(), 20);
        ASSERT_LE(master.follower.getTempo(), 250);
        ASSERT_GE(master.effectiveTempo, 15);
        ASSERT_LE(master.effectiveTempo, 312.5);
    }
    master.play(8 * BEAT, 120);
    EXPECT_LT(deviation(master, 120, [&] { master.play(8 * BEAT, 120); }), 40);
    EXPECT_NEAR(master.effectiveTempo, 120, 0.5);
}

TEST(ClockFollower, ResetForgetsTheClockBefore)
{
    ClockMaster master;
    master.follower.start();
    master.play(8 * BEAT, 180);
    master.follower.reset(77);
    EXPECT_DOUBLE_EQ(master.follower.getTempo(), 77);
    EXPECT_FALSE(master.follower.isActive(master.now));
    master.play(3, 180);
    EXPECT_DOUBLE_EQ(master.effectiveTempo, 77) << "three ticks are too few for a tempo";
}
}  // namespace Host
