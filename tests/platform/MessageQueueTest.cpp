#include "platform/MessageQueue.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <memory>
#include <thread>
#include <vector>

namespace
{
/// Counts how many of it live.
struct Counted {
    explicit Counted(int& c) : count(&c) { ++*count; }
    Counted(Counted&& other) noexcept : count(std::exchange(other.count, nullptr)) {}
    Counted& operator=(Counted&&) = delete;
    ~Counted()
    {
        if (count != nullptr) --*count;
    }
    int* count;
};

std::vector<unsigned> takeAll(MessageQueue& queue)
{
    std::vector<unsigned> numbers;
    while (queue.handleNext([&](Message& message) { numbers.push_back(message.number); })) {}
    return numbers;
}
}  // namespace

TEST(MessageQueue, KeepsTheOrderOfAllPostersAndOfCauseAndEffect)
{
    // Three posters hand a baton round: each message is caused by the one before, whoever posted it.
    constexpr unsigned ROUNDS = 20000;
    MessageQueue queue(16);
    std::atomic<unsigned> turn{0};
    std::vector<std::thread> posters;
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
    for (auto& poster : posters) poster.join();
    EXPECT_TRUE(queue.isDrained());
    EXPECT_EQ(queue.handledCount(), ROUNDS);
}

TEST(MessageQueue, LosesNothingWhenEverybodyPostsAtOnceAndTheConsumerSleeps)
{
    constexpr unsigned EACH = 30000;
    MessageQueue queue(64);
    std::array<unsigned, 4> last{};
    std::vector<std::thread> posters;
    for (unsigned me = 0; me < last.size(); ++me)
        posters.emplace_back([&, me] {
            for (unsigned i = 1; i <= EACH; ++i) {
                if (me == 0) {
                    queue.postFromSlice({.number = me, .wparam = i});
                    if (i % 16 == 0) queue.wake();
                } else {
                    queue.post({.number = me, .wparam = i});
                }
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
    for (auto& poster : posters) poster.join();
    EXPECT_TRUE(queue.isDrained());
}

TEST(MessageQueue, FreesThePayloadNobodyTakes)
{
    int alive = 0;
    MessageQueue queue;
    queue.post({.number = 1, .payload = Payload::of(Counted(alive))});
    EXPECT_EQ(alive, 1);
    takeAll(queue);
    EXPECT_EQ(alive, 0) << "handled without a look at it";

    queue.post({.number = 2, .payload = Payload::of(Counted(alive))});
    queue.close();
    EXPECT_EQ(alive, 0) << "waiting when the queue closed";

    queue.post({.number = 3, .payload = Payload::of(Counted(alive))});
    queue.postFromSlice({.number = 4, .payload = Payload::of(Counted(alive))});
    EXPECT_EQ(alive, 0) << "posted to a closed queue";

    queue.open();
    {
        MessageQueue shortLived;
        shortLived.post({.number = 5, .payload = Payload::of(Counted(alive))});
    }
    EXPECT_EQ(alive, 0) << "waiting when the queue went";

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
