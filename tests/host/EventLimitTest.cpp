#include "host/ports/EventLimit.h"

#include <gtest/gtest.h>

#include "tests/host/HostTesting.h"

namespace Host
{
namespace
{
using Testing::controller;
using Testing::off;
using Testing::on;

constexpr std::uint32_t NOON = 0xFFFFFF00;  // the milliseconds wrap round in the test
}  // namespace

TEST(EventLimit, PassesAsMuchAsACableCanCarry)
{
    EventLimit limit;
    for (std::uint32_t milliseconds = 0; milliseconds < 60'000; milliseconds += 10)
        for (int note = 0; note < 10; ++note) EXPECT_TRUE(limit.passes(on(note), NOON + milliseconds));
    EXPECT_EQ(limit.limitedCount(), 0u) << "even without any note-off";
}

TEST(EventLimit, LimitsAFloodToItsRate)
{
    EventLimit limit;
    EventLimit noteLimit;
    std::uint32_t passed = 0;
    std::uint32_t notesPassed = 0;
    for (std::uint32_t milliseconds = 0; milliseconds < 10'000; ++milliseconds)
        for (int event = 0; event < 50; ++event) {
            passed += limit.passes(controller(event, 64), NOON + milliseconds) ? 1 : 0;
            notesPassed += noteLimit.passes(on(60), NOON + milliseconds) ? 1 : 0;
        }
    EXPECT_LE(passed, EventLimit::BURST + 10 * EventLimit::PER_SECOND);
    EXPECT_GE(passed, 10 * EventLimit::PER_SECOND);
    EXPECT_EQ(limit.limitedCount(), 500'000 - passed);
    EXPECT_LE(notesPassed, 300u) << "one note that is never released";
}

TEST(EventLimit, NeverDropsTheNoteOffOfANoteThatPassed)
{
    EventLimit limit;
    for (const int note : {60, 60, 64}) EXPECT_TRUE(limit.passes(on(note), 0));
    EXPECT_TRUE(limit.passes(controller(64, 127), 0));
    while (limit.passes(controller(1, 64), 0)) {}
    EXPECT_FALSE(limit.passes(on(67), 0));
    for (std::uint8_t status = 0xFF; status >= 0xF0; --status)
        EXPECT_FALSE(limit.passes({{status, 60, 0}, 3}, 0)) << "it has no channel, and ends nothing";
    for (const int note : {60, 64, 60}) EXPECT_TRUE(limit.passes(off(note), 0));
    EXPECT_TRUE(limit.passes(controller(64, 0), 0));
    EXPECT_FALSE(limit.passes(off(67), 0)) << "whose note on did not pass";
    EXPECT_FALSE(limit.passes(off(60), 0)) << "a third for two";
    EXPECT_FALSE(limit.passes(controller(64, 0), 0));
    EXPECT_TRUE(limit.passes(off(67), 1)) << "a note-off without a note-on passes below the limit";
}
}  // namespace Host
