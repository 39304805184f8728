#include "platform/Worker.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <thread>
#include <vector>

static constexpr unsigned STOP = 99;

TEST(Worker, HandlesWhatWaitedBeforeItRanAndBeforeItStops)
{
    std::vector<unsigned> handled;
    Worker worker("worker", STOP, [&](Message& message) { handled.push_back(message.number); });
    worker.post({.number = 1});
    worker.post({.number = 2});
    worker.start();
    worker.post({.number = 3});
    worker.stop();
    EXPECT_EQ(handled, (std::vector<unsigned>{1, 2, 3}));

    worker.post({.number = 4});
    EXPECT_TRUE(worker.rest().resting) << "a post to a stopped worker is freed at once";
    worker.start();
    worker.post({.number = 5});
    worker.stop();
    EXPECT_EQ(handled, (std::vector<unsigned>{1, 2, 3, 5}));
}

TEST(Worker, EverySenderGetsItsOwnAnswer)
{
    std::atomic<int> done{0};
    Worker worker("worker", STOP, [&](Message&) { ++done; });
    worker.start();
    std::vector<std::jthread> senders;
    for (int i = 0; i < 4; ++i)
        senders.emplace_back([&] {
            for (int round = 0; round < 500; ++round) {
                const int before = done;
                worker.send({.number = 1});
                EXPECT_GT(done.load(), before);
            }
        });
    senders.clear();
    worker.stop();
    EXPECT_EQ(done.load(), 2000);

    worker.send({.number = 1});  // to a stopped worker: returns, not handled
    EXPECT_EQ(done.load(), 2000);
}

TEST(Worker, RestsOnlyWhenAMessageIsHandledToItsEnd)
{
    Event entered;
    Event goOn;
    Worker worker("worker", STOP, [&](Message& message) {
        if (message.number != 1) return;
        entered.set();
        goOn.wait();
        Worker::current()->setWaiting(true);
        entered.set();
        goOn.wait();
        Worker::current()->setWaiting(false);
    });
    worker.start();
    const auto idle = worker.rest();
    EXPECT_TRUE(idle.resting);
    worker.post({.number = 1});
    entered.wait();
    EXPECT_FALSE(worker.rest().resting) << "busy, although nothing waits in the queue";
    goOn.set();
    entered.wait();
    worker.post({.number = 2});
    EXPECT_TRUE(worker.rest().resting) << "waiting for a slice, whatever follows it in the queue";
    goOn.set();
    worker.stop();
    EXPECT_NE(worker.rest().changes, idle.changes);
}

TEST(Worker, GoesOnWhenAHandlerThrows)
{
    int handled = 0;
    Worker worker("worker", STOP, [&](Message& message) {
        if (message.number == 1) throw std::runtime_error("no");
        ++handled;
    });
    worker.start();
    worker.send({.number = 1});
    worker.send({.number = 2});
    worker.stop();
    EXPECT_EQ(handled, 1);
}
