#include "host/clock/Clock.h"

#include <gtest/gtest.h>

#include <atomic>
#include <mutex>
#include <thread>
#include <vector>

namespace Host
{
using namespace std::chrono_literals;

namespace
{
struct Span {
    std::int32_t start, end;
};

/// A clock that plays slices, which are recorded.
struct Recording {
    Ports ports;
    Event requests;
    Player player{ports, requests};
    std::mutex writing;
    std::vector<Span> spans;
    int resets = 0;
    Slices slices{[this](std::int32_t start, std::int32_t end) {
                      const std::lock_guard lock(writing);
                      spans.push_back({start, end});
                  },
                  [this] { ++resets; }};
    Clock clock{slices, player, [] {}};

    void expectContiguous()
    {
        const std::lock_guard lock(writing);
        for (std::size_t index = 1; index < spans.size(); ++index)
            ASSERT_EQ(spans[index].start, spans[index - 1].end) << "slice " << index;
    }
};

}  // namespace

TEST(Clock, PlaysWhatArrivesBeforeThePulseOfItsFrameAndOnlyInAGraphThatOwnsIt)
{
    Recording recording;
    struct : PeriodInputs {
        std::optional<std::uint32_t> nextFrame() override
        {
            return frames.empty() ? std::nullopt : std::optional(frames.front());
        }
        void playNext() override
        {
            frames.erase(frames.begin());
            slicesBefore.push_back(slices->count());
        }
        Slices* slices = nullptr;
        std::vector<std::uint32_t> frames;
        std::vector<std::uint64_t> slicesBefore;
    } inputs;
    inputs.slices = &recording.slices;
    inputs.frames = {0, 49, 50, 51, 255};
    recording.clock.playPeriod(0, 256, nullptr, &inputs);
    EXPECT_EQ(inputs.frames.size(), 5u) << "the clock was not started";
    recording.clock.startInGraph(48000);  // a pulse every 50 frames, at first with frame 0
    recording.clock.playPeriod(0, 256, nullptr, &inputs);
    EXPECT_EQ(inputs.slicesBefore, (std::vector<std::uint64_t>{0, 1, 1, 2, 6}));
    recording.clock.stop();
}

TEST(Clock, RestsOnlyWhileTheEngineDoesAndIsWokenToContinueWithoutAGap)
{
    Recording recording;
    std::atomic<int> rests{0};
    std::atomic<bool> isEngineResting{true};
    recording.clock.setTryRest([&] { return isEngineResting && ++rests > 0; });
    const auto waitFor = [](const auto& condition) {
        while (!condition()) std::this_thread::sleep_for(1ms);
    };
    recording.clock.startOnThread();
    waitFor([&] { return rests > 2; });
    isEngineResting = false;
    recording.player.wakeClock();
    const auto count = recording.slices.count();
    waitFor([&] { return recording.slices.count() > count + 10; });
    recording.player.markPlayed();
    waitFor([&] { return recording.slices.count() > count + 12; });
    const int before = rests;
    isEngineResting = true;
    waitFor([&] { return rests > before; });
    recording.clock.stop();
    recording.expectContiguous();
}

TEST(Clock, InAGraphPlaysOneSliceForAQuietPeriodWhileTheEngineRests)
{
    Recording recording;
    bool isEngineResting = false;
    recording.clock.setTryRest([&] { return isEngineResting; });
    recording.clock.startInGraph(48000);
    recording.clock.playPeriod(0, 256);
    EXPECT_EQ(recording.spans.size(), 6u);
    isEngineResting = true;
    recording.clock.playPeriod(256, 250);
    EXPECT_EQ(recording.spans.size(), 7u);
    recording.player.setClockIn(0);
    recording.clock.playPeriod(506, 250);
    EXPECT_EQ(recording.spans.size(), 12u) << "every pulse of a clock that is followed";
    recording.clock.stop();
    recording.expectContiguous();
}

TEST(PulseClock, AfterAnHourEveryPulseStillFallsOnItsFrame)
{
    const struct {
        int rate, period, bpm;
    } ROWS[] = {{48000, 256, 120}, {44100, 441, 133}, {44100, 64, 250}, {96000, 1024, 20}};
    for (const auto& [rate, period, bpm] : ROWS) {
        constexpr std::int64_t HOUR = 3600;
        PulseClock pulses(rate);
        std::int64_t pulse = 0;
        for (std::int64_t start = 0; start < rate * HOUR; start += period) {
            for (; pulses.ticksToPulse() < period; pulses.passPulse(bpm), ++pulse)
                ASSERT_EQ(start + pulses.ticksToPulse(), (pulse * rate + 8 * bpm - 1) / (8 * bpm)) << "pulse " << pulse;
            pulses.passTicks(period);
        }
        ASSERT_GE(pulse, 8 * bpm * HOUR);
    }
}

TEST(PulseClock, ANewTempoTakesEffectWithTheNextPulse)
{
    PulseClock pulses(48000);
    pulses.passPulse(120);
    pulses.passTicks(30);
    EXPECT_EQ(pulses.ticksToPulse(), 20);
    pulses.passTicks(20);
    pulses.passPulse(60);
    EXPECT_EQ(pulses.ticksToPulse(), 100);
}

TEST(Slices, TheCounterRestartsBeforeItOverflowsAndNothingIsSkipped)
{
    Recording recording;
    recording.slices.startAt(Slices::LAST_PULSE - 2);
    for (int count = 0; count < 4; ++count) recording.slices.play(1);
    recording.expectContiguous();
    ASSERT_EQ(recording.spans.size(), 5u);
    EXPECT_EQ(recording.spans[2].end, Slices::FIRST_PULSE) << "one slice goes back";
    EXPECT_EQ(recording.spans.back().end, Slices::FIRST_PULSE + 2);
    EXPECT_EQ(recording.resets, 1);
}

TEST(Clock, InAGraphPlaysOneSliceForEachPulseOfThePeriods)
{
    Recording recording;
    recording.clock.startInGraph(48000);
    for (std::uint32_t period = 0; period < 375; ++period)
        recording.clock.playPeriod(period * 256, 256);  // two seconds
    recording.clock.stop();
    recording.clock.playPeriod(375 * 256, 256);
    ASSERT_EQ(recording.spans.size(), 1920u) << "480 pulses a quarter note at 120, and none after the stop";
    recording.expectContiguous();
    for (const Span& span : recording.spans) ASSERT_EQ(span.end, span.start + 1);
    EXPECT_EQ(recording.spans[0].start, 50000000);
    EXPECT_EQ(recording.player.getThreadId(), currentThreadId());
}

TEST(Clock, ItsThreadTakesOverWhenTheGraphDiesOrHangsAndHandsBackWithoutSkippingAPulse)
{
    Recording recording;
    Clock& clock = recording.clock;
    clock.startInGraph(48000);
    std::uint32_t frame = 0;
    const auto playPeriod = [&] { clock.playPeriod(frame += 256, 256); };
    const std::pair<bool, int> ROWS[] = {{true, 44100}, {false, 44100}, {true, 96000}, {false, 96000}};
    for (const auto& [dies, nextRate] : ROWS) {
        for (int period = 0; period < 10; ++period) playPeriod();
        if (dies) clock.graphLost();
        clock.waitForSlices(20);
        ASSERT_TRUE(clock.runsOnItsThread());
        EXPECT_EQ(clock.graphHangs(), !dies);
        EXPECT_NE(recording.player.getThreadId(), currentThreadId());
        if (dies) {
            playPeriod();  // a last callback of the lost graph
            EXPECT_TRUE(clock.runsOnItsThread());
            clock.returnToGraph(nextRate);
        }
        while (clock.runsOnItsThread()) playPeriod();
        const auto slices = recording.slices.count();
        while (recording.slices.count() < slices + 5) playPeriod();
        EXPECT_FALSE(clock.graphHangs());
        EXPECT_EQ(recording.player.getThreadId(), currentThreadId());
    }
    clock.stop();
    for (const Span& span : recording.spans) ASSERT_LE(span.end - span.start, Slices::LONGEST);
    recording.expectContiguous();
}

TEST(Clock, KeepsTheTempoWhenTheGraphsRateChanges)
{
    Recording recording;
    recording.clock.startInGraph(48000);
    for (int period = 0; period < 100; ++period) recording.clock.playPeriod(0, 480);  // a second
    recording.clock.setGraphRate(96000);
    for (int period = 0; period < 100; ++period) recording.clock.playPeriod(0, 960);
    recording.clock.stop();
    EXPECT_EQ(recording.spans.size(), 1920u);
    recording.expectContiguous();
}
}  // namespace Host
