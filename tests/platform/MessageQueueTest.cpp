#include "platform/MessageQueue.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <memory>
#include <thread>
#include <vector>

namespace
{
std::vector<unsigned> takeAll(MessageQueue& queue)
{
    std::vector<unsigned> numbers;
    while (queue.handleNext([&](Message& message) { numbers.push_back(message.number); })) {}
    return numbers;
}
}  // namespace

TEST(MessageQueue, KeepsTheOrderOfAllPostersAndOfCauseAndEffect)
{
    // Three posters take turns: each message is caused by the one before, whichever thread posted it.
    constexpr unsigned ROUNDS = 20000;
    MessageQueue queue(16);
    std::atomic<unsigned> turn{0};
    std::vector<std::jthread> posters;
    for (unsigned me = 0; me < 3; ++me)
        posters.emplace_back([&, me] {
            for (unsigned number = me; number < ROUNDS; number += 3) {
                while (turn.load() != number) std::this_thread::yield();
                if (me == 0)
                    queue.postFromSlice({.number = number});
                else
                    queue.post({.number = number});
                turn = number + 1;
                queue.wake();
            }
        });
    for (unsigned expected = 0; expected < ROUNDS; ++expected) {
        queue.waitForMessage();
        queue.handleNext([&](Message& message) { ASSERT_EQ(message.number, expected); });
    }
    EXPECT_TRUE(queue.isDrained());
    EXPECT_EQ(queue.handledCount(), ROUNDS);
}

TEST(MessageQueue, LosesNothingWhenEverybodyPostsAtOnceAndTheConsumerSleeps)
{
    constexpr unsigned EACH = 30000;
    MessageQueue queue(64);
    std::array<unsigned, 4> last{};
    std::vector<std::jthread> posters;
    for (unsigned me = 0; me < last.size(); ++me)
        posters.emplace_back([&, me] {
            for (unsigned i = 1; i <= EACH; ++i) {
                if (me != 0) queue.post({.number = me, .wparam = i});
                if (me == 0) queue.postFromSlice({.number = me, .wparam = i});
                if (me == 0 && i % 16 == 0) queue.wake();
            }
            queue.wake();
        });
    for (unsigned taken = 0; taken < EACH * last.size(); ++taken) {
        queue.waitForMessage();
        queue.handleNext([&](Message& message) {
            ASSERT_EQ(message.wparam, last[message.number] + 1);
            last[message.number] = message.wparam;
        });
    }
    EXPECT_TRUE(queue.isDrained());
}

TEST(MessageQueue, FreesThePayloadNobodyTakes)
{
    const auto shared = std::make_shared<int>();
    const auto message = [&](unsigned number) {
        return Message{.number = number, .payload = Payload::of(std::shared_ptr(shared))};
    };
    MessageQueue queue;
    queue.post(message(1));
    EXPECT_EQ(shared.use_count(), 2);
    takeAll(queue);
    EXPECT_EQ(shared.use_count(), 1) << "handled without a look at it";

    queue.post(message(2));
    queue.close();
    EXPECT_EQ(shared.use_count(), 1) << "waiting when the queue closed";

    queue.post(message(3));
    queue.postFromSlice(message(4));
    EXPECT_EQ(shared.use_count(), 1) << "posted to a closed queue";

    queue.open();
    MessageQueue().post(message(5));
    EXPECT_EQ(shared.use_count(), 1) << "waiting when the queue went";

    queue.post({.number = 6});
    EXPECT_EQ(takeAll(queue), std::vector{6u});
}

TEST(MessageQueue, APayloadIsFoundUnderItsOwnTypeOnly)
{
    Payload payload = Payload::of(std::make_unique<int>(7));
    EXPECT_EQ(payload.get<int>(), nullptr);
    ASSERT_NE(payload.get<std::unique_ptr<int>>(), nullptr);
    EXPECT_EQ(**payload.get<std::unique_ptr<int>>(), 7);
    EXPECT_EQ(Payload().get<int>(), nullptr);
}

TEST(MessageQueue, AHandlerMayServeTheQueueItself)
{
    MessageQueue queue(4);
    for (unsigned number = 1; number <= 4; ++number) queue.post({.number = number});

    std::vector<unsigned> order;
    queue.handleNext([&](Message& outer) {
        while (queue.handleNext([&](Message& inner) { order.push_back(inner.number); })) {}
        EXPECT_FALSE(queue.isDrained()) << "the outer message is still being handled";
        order.push_back(outer.number);
    });
    EXPECT_EQ(order, (std::vector<unsigned>{2, 3, 4, 1}));
    EXPECT_TRUE(queue.isDrained());
    queue.postFromSlice({.number = 5});
    EXPECT_EQ(takeAll(queue), std::vector{5u});
}

TEST(MessageQueue, WaitsNoLongerThanAskedFor)
{
    MessageQueue queue;
    EXPECT_FALSE(queue.waitForMessage(std::chrono::milliseconds(1)));
    queue.post({.number = 1});
    EXPECT_TRUE(queue.waitForMessage(std::chrono::milliseconds(1)));
}
