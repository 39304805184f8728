#include "host/clock/Clock.h"

#include <gtest/gtest.h>

#include <mutex>
#include <vector>

namespace Host
{
using namespace std::chrono_literals;

namespace
{
struct Span {
    std::int32_t start;
    std::int32_t end;
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

/// The frame of every pulse in `seconds` of periods.
std::vector<std::int64_t> pulseFrames(int rate, int periodFrames, int seconds, int bpm)
{
    std::vector<std::int64_t> frames;
    PulseClock pulses(rate);
    std::int64_t start = 0;
    for (; start < std::int64_t{rate} * seconds; start += periodFrames) {
        for (; pulses.ticksToPulse() < periodFrames; pulses.passPulse(bpm))
            frames.push_back(start + pulses.ticksToPulse());
        pulses.passTicks(periodFrames);
    }
    while (!frames.empty() && frames.back() >= std::int64_t{rate} * seconds) frames.pop_back();
    return frames;
}
}  // namespace

TEST(PulseClock, AfterAnHourEveryPulseStillFallsOnItsFrame)
{
    struct Row {
        int rate, period, bpm;
    };
    for (const auto& [rate, period, bpm] :
         {Row{48000, 256, 120}, Row{44100, 441, 133}, Row{44100, 64, 250}, Row{96000, 1024, 20}}) {
        constexpr int HOUR = 3600;
        const auto frames = pulseFrames(rate, period, HOUR, bpm);
        ASSERT_EQ(frames.size(), std::size_t(8) * bpm * HOUR);
        for (std::size_t pulse = 0; pulse < frames.size(); ++pulse) {
            const auto parts = static_cast<std::int64_t>(pulse) * rate;
            ASSERT_EQ(frames[pulse], (parts + 8 * bpm - 1) / (8 * bpm)) << "pulse " << pulse;
        }
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

TEST(Clock, WithoutAGraphItsThreadPlaysContiguousSlices)
{
    Recording recording;
    recording.clock.startOnThread();
    recording.clock.waitForSlices(50);
    EXPECT_NE(recording.player.getThreadId(), currentThreadId());
    recording.clock.stop();
    recording.expectContiguous();
    EXPECT_GE(recording.spans.size(), 50u);
    for (const Span& span : recording.spans) ASSERT_LE(span.end - span.start, Slices::LONGEST);
}

TEST(Clock, ItsThreadTakesOverWhenTheGraphDiesOrHangsAndHandsBackWithoutSkippingAPulse)
{
    Recording recording;
    Clock& clock = recording.clock;
    clock.startInGraph(48000);
    std::uint32_t frame = 0;
    const auto playPeriod = [&] { clock.playPeriod(frame += 256, 256); };
    struct Row {
        bool dies;
        int nextRate;
    };
    for (const auto& [dies, nextRate] : {Row{true, 44100}, Row{false, 44100}, Row{true, 96000}, Row{false, 96000}}) {
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
