#include "platform/CriticalSection.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

#include "platform/Event.h"

namespace
{
// Taken under a condition that the analysis does not follow.
void letGo(CriticalSection& section) NO_THREAD_SAFETY_ANALYSIS { section.leave(); }
}  // namespace

TEST(CriticalSection, LetsOneThreadInAtATime)
{
    CriticalSection section;
    int count = 0;
    std::vector<std::jthread> threads;
    for (int i = 0; i < 3; ++i)
        threads.emplace_back([&] {
            for (int round = 0; round < 10000; ++round) {
                const Locked lock(section);
                ++count;
            }
        });
    threads.clear();
    EXPECT_EQ(count, 30000);
}

TEST(CriticalSection, AWaiterServesItsMessagesUntilTheLockIsFreeOrItMustQuit)
{
    CriticalSection section;
    int pumped = 0;
    ASSERT_TRUE(section.waitWithMessageLoop([&] { return ++pumped > 0; }));
    EXPECT_EQ(pumped, 0) << "a free lock is taken at once";

    Event thirdRound;
    std::thread waiter([&] {
        EXPECT_FALSE(section.waitWithMessageLoop([] { return false; })) << "ends at once";
        EXPECT_FALSE(section.tryEnter()) << "without the lock";
        int rounds = 0;
        EXPECT_TRUE(section.waitWithMessageLoop([&] {
            if (++rounds == 3) thirdRound.set();
            return true;
        }));
        EXPECT_GE(rounds, 3);
        letGo(section);
    });
    thirdRound.wait();
    letGo(section);
    waiter.join();
}

TEST(Event, LetsOneWaiterThroughForAnyNumberOfSignals)
{
    Event event;
    event.set();
    event.set();
    EXPECT_TRUE(event.waitFor(std::chrono::milliseconds(0)));
    EXPECT_FALSE(event.waitFor(std::chrono::milliseconds(1)));
    event.set();
    event.wait();
}
