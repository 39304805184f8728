#include "backend/values/Scaling.h"

#include <gtest/gtest.h>

#include <limits>

namespace
{
constexpr int LEAST = std::numeric_limits<int>::min();
constexpr int MOST = std::numeric_limits<int>::max();
}  // namespace

TEST(ScaleRange, MapsLinearlyAndRounds)
{
    // Where the output falls, a half goes down.
    const struct {
        int inFrom, inTo, value, outFrom, outTo, result;
    } rows[] = {{0, 127, 0, 0, 1000, 0},
                {0, 127, 127, 0, 1000, 1000},
                {0, 127, 64, 0, 1000, 504},
                {0, 127, 200, 0, 1000, 1000},
                {0, 127, -64, 0, 1000, -503},
                {0, 2, 1, 0, 1, 1},
                {0, 2, -1, 0, 1, 0},
                {0, 127, 0, 127, 0, 127},
                {0, 127, 127, 127, 0, 0},
                {0, 2, 1, 1, 0, 0},
                {0, 10, -5, 10, 0, 14},
                {127, 0, 127, 0, 1000, 0},
                {127, 0, 0, 0, 1000, 1000},
                {127, 0, 63, 0, 1000, 504},
                {10, 0, 12, 0, 10, -1},
                {127, 0, 127, 9, 2, 9},
                {127, 0, 0, 9, 2, 2},
                {5, 5, 5, 3, 9, 3},
                {5, 5, 8, 9, 3, 9},
                {LEAST, MOST, MOST, LEAST, MOST, MOST},
                {0, 1, -1, LEAST, LEAST, MOST},
                {0, 1, -1, MOST, LEAST, MOST - 2},
                {LEAST, LEAST, LEAST, LEAST, LEAST, MOST}};
    for (const auto& [inFrom, inTo, value, outFrom, outTo, result] : rows)
        EXPECT_EQ(scaleRange(inFrom, inTo, value, outFrom, outTo), result)
            << value << " of " << inFrom << ".." << inTo << " to " << outFrom << ".." << outTo;
}

TEST(ScaleLogarithmic, FallsFromHighToLowAndStaysWithinTheScale)
{
    for (const auto& [knob, result] : {std::pair{0, 30720}, {1, 29154}, {64, 1079}, {126, 42}, {127, 40}})
        EXPECT_EQ(scaleLogarithmic(knob, 40, 30720), result) << knob;
    for (int high = 40; high < 3000; ++high) {
        ASSERT_EQ(scaleLogarithmic(0, 40, high), high);
        ASSERT_EQ(scaleLogarithmic(127, 40, high), 40);
    }
    for (const int knob : {LEAST, -1, 128, MOST}) EXPECT_EQ(scaleLogarithmic(knob, 20, 50), knob < 0 ? 50 : 20);
    EXPECT_EQ(scaleLogarithmic(64, 0, 0), 0);
    EXPECT_EQ(scaleLogarithmic(64, -5, 100), -5);
    EXPECT_EQ(scaleLogarithmic(127, MOST, MOST), MOST);
}
