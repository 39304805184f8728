#include <gtest/gtest.h>

#include "host/clock/SliceLoad.h"
#include "host/run/Status.h"
#include "tests/host/HostTesting.h"
#include "tests/stage/Allocations.h"

namespace Host
{
using namespace std::chrono_literals;

TEST(SliceLoad, KnowsMedianAndExtremesToAnEighth)
{
    const auto isAbout = [](std::chrono::nanoseconds reported, std::chrono::nanoseconds real) {
        return reported >= real && reported <= real + real / 8 + 1ns;
    };
    SliceLoad load;
    load.add(7ms);  // before the look
    const auto before = load.counts();
    const auto allocations = allocationsOfThisThread();
    for (int microseconds = 1; microseconds <= 1000; ++microseconds) load.add(std::chrono::microseconds(microseconds));
    EXPECT_EQ(allocationsOfThisThread(), allocations);
    const auto summary = SliceLoad::summarise(before, load.counts());
    EXPECT_EQ(summary.slices, 1000u);
    EXPECT_TRUE(isAbout(summary.median, 500us)) << summary.median.count();
    EXPECT_TRUE(isAbout(summary.most, 990us)) << summary.most.count();
    EXPECT_TRUE(isAbout(summary.worst, 1ms)) << summary.worst.count();
    EXPECT_TRUE(isAbout(SliceLoad::summarise({}, load.counts()).worst, 7ms));

    for (const auto time : {0ns, 1ns, 7ns, 8ns, 9ns, 1023ns, 1024ns, std::chrono::nanoseconds(3s)}) {
        SliceLoad one;
        one.add(time);
        EXPECT_TRUE(isAbout(SliceLoad::summarise({}, one.counts()).worst, time)) << time.count();
    }
    load.add(-1ns);
    load.add(1h);  // no more than the last step knows
    EXPECT_EQ(SliceLoad::summarise({}, {}).slices, 0u);
}

TEST(StatusLine, ShowsWhatIsConnectedWhatSoundsAndWhatWasLost)
{
    Ports ports;
    ports.addInput("Keys")->found = false;
    InputPort& loop = *ports.addInput("Loop");
    for (int event = 0; event < EventLimit::BURST + 3; ++event) loop.limit.passes(Testing::controller(1, 64), 0);
    OutputPort& organ = *ports.addOutput("Organ");
    ports.addOutput("Bells")->enabled = false;
    organ.open();
    for (const ShortMessage& message : {Testing::on(60), Testing::on(64), Testing::on(67), Testing::off(64)})
        organ.play(message, 0);
    organ.deliver(0, [](const ShortMessage&, std::uint32_t) { return true; });
    Status status;
    status.system = "ALSA";
    status.tempo = 96;
    status.load = {10, 900ns, 4us, 20001ns};
    status.lateSlices = 5;
    status.realTime = "none";
    status.longestHold = 11500ns;
    EXPECT_EQ(describeStatus(status, ports),
              "ALSA | in 1 of 2, out 1 of 2 | 96 bpm | slice 1/4/21 us, 5 late, lock held 12 us | 2 notes | real time: "
              "none | Loop: 3 "
              "limited");
}
}  // namespace Host
