#include "platform/Thread.h"

#include <gtest/gtest.h>
#include <sched.h>

TEST(Thread, GoesOnWithoutRealTimePriorityAndPassesNoneOn)
{
    Thread clock;
    Thread child;
    clock.start("clock", [&] {
        const bool granted = requestRealTimePriority(RealTimeStep::clock);
        EXPECT_EQ(granted, realTimeAnswer(RealTimeStep::clock) == RealTimeAnswer::granted);
        EXPECT_EQ(granted, (sched_getscheduler(0) & ~SCHED_RESET_ON_FORK) == SCHED_FIFO);
        child.start("child", [] { EXPECT_EQ(sched_getscheduler(0), SCHED_OTHER); });
    });
    clock.join();
    child.join();
    EXPECT_NE(realTimeAnswer(RealTimeStep::clock), RealTimeAnswer::none);
}
