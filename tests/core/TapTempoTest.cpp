#include "backend/core/TapTempo.h"

#include <gtest/gtest.h>

#include <vector>

TEST(TapTempo, FollowsTheLastTapsAndBeginsAnewAfterAPause)
{
    Backend::TapTempo taps;
    const auto tapAt = [&](std::vector<std::uint32_t> times) {
        int tempo = 0;
        for (const std::uint32_t time : times) tempo = taps.tap(time).value_or(0);
        return tempo;
    };
    EXPECT_EQ(tapAt({1000}), 0);
    EXPECT_EQ(tapAt({1500}), 120);
    EXPECT_EQ(tapAt({2010, 2490, 3000}), 120) << "the mean";
    EXPECT_EQ(tapAt({3600, 4200, 4800, 5400}), 100) << "of four";
    EXPECT_EQ(tapAt({9000}), 0) << "too late";
    EXPECT_EQ(tapAt({9100}), 0) << "too soon";
    EXPECT_EQ(tapAt({0xFFFFFF00, 0xF4}), 120) << "the clock wraps";
}
