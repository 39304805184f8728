#include "host/render/TempoMap.h"

#include <gtest/gtest.h>

TEST(TempoMap, CountsFramesThroughEveryTempo)
{
    const Host::TempoMap map({{480, 60}, {960, 240}, {960, 20}}, 48000);
    EXPECT_EQ(map.frameAt(0), 0);
    EXPECT_EQ(map.frameAt(1), 50);
    EXPECT_EQ(map.frameAt(480), 24000) << "a beat at 120";
    EXPECT_EQ(map.frameAt(481), 24100);
    EXPECT_EQ(map.frameAt(960), 72000) << "and one at 60";
    EXPECT_EQ(map.frameAt(961), 72300) << "the last of two changes holds";
    EXPECT_EQ(Host::TempoMap({{0, 97}}, 48000).frameAt(480 * 97), 48000 * 60) << "a minute, without drift";
}
