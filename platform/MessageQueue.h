#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

#include "platform/Event.h"
#include "platform/Export.h"
#include "platform/Message.h"
#include "platform/Mutex.h"

/// A message queue with any number of producers and one consumer. It never drops a message while it is open, and the
/// messages of all producers have one total order, in which a cause comes before its effect (the order of exchanges on
/// one atomic pointer).
///
/// The time slice is a special producer: `postFromSlice` is one exchange and one store, takes its nodes from a pool
/// that the consumer fills, and does not wake the consumer; `wake` does that after the engine lock was left.
///
/// A queue is open from construction. Once closed it frees posted messages at once.
class ORV_API MessageQueue
{
public:
    /// `slicePool` is the number of messages from slices that can wait without an allocation, rounded up to a power of
    /// two; 0 for a queue to which no slice posts.
    explicit MessageQueue(std::size_t slicePool = 0);
    /// `waker` is for a consumer that sleeps elsewhere, as a window in its event loop: it is called instead of waking
    /// `waitForMessage`, on the producer's thread, and must neither block nor allocate.
    MessageQueue(std::size_t slicePool, std::function<void()> waker);
    ~MessageQueue();

    MessageQueue(const MessageQueue&) = delete;
    MessageQueue& operator=(const MessageQueue&) = delete;

    /// Any thread but the time slice. May allocate; wakes the consumer.
    void post(Message message);

    /// Inside a time slice only (one producer at a time, ordered by the engine lock). Wait-free.
    void postFromSlice(Message message);

    /// Wakes the consumer if it sleeps. Any thread, outside the engine lock.
    void wake();

    /// Calls `handle(Message&)` with the oldest message; false if none waits. Consumer only; may be called again from
    /// `handle`, as a modal message loop does.
    template <class Handle>
    bool handleNext(Handle&& handle)
    {
        Message message;
        if (!take(message)) return false;
        const Handling handling(*this);
        handle(message);
        // The message is freed, and its waiting thread released, before it counts as handled.
        [[maybe_unused]] const Message gone = std::move(message);
        return true;
    }

    /// Whether another message waits. Consumer only.
    bool hasNext() const { return current->next.load(std::memory_order_acquire) != nullptr; }

    /// Sleeps until a message waits. Consumer only.
    void waitForMessage();
    /// The same, at most that long; false if none came.
    bool waitForMessage(std::chrono::milliseconds longest);

    /// The consumer is about to sleep elsewhere: the next post calls the waker. False if a message waits already.
    /// Consumer only.
    bool fallAsleep();

    /// From now on messages that wait or are posted are freed at once. Called by the consumer, or by another thread
    /// after the consumer's thread has ended.
    void close();
    void open();

    /// True if every posted message has been handled completely. Any thread.
    bool isDrained() const { return newest.load() == handled.load(); }

    /// Grows with every message handled. Any thread.
    std::uint64_t handledCount() const { return handledSoFar.load(); }

private:
    struct Node {
        std::atomic<Node*> next{nullptr};
        Message message;
    };

    /// Free nodes for the slice: a ring that the consumer fills and the slice empties.
    class Pool
    {
    public:
        explicit Pool(std::size_t wanted);
        ~Pool();
        bool give(Node* node);
        Node* take();

    private:
        std::vector<Node*> ring;
        alignas(64) std::atomic<std::size_t> given{0};
        alignas(64) std::atomic<std::size_t> taken{0};
    };

    /// Marks the messages as handled when the outermost handler returns.
    class Handling
    {
    public:
        explicit Handling(MessageQueue& q) : queue(q) { ++queue.depth; }
        ~Handling()
        {
            if (--queue.depth == 0) queue.finish();
        }
        Handling(const Handling&) = delete;
        Handling& operator=(const Handling&) = delete;

    private:
        MessageQueue& queue;
    };

    void append(Node* node);
    bool take(Message& message);
    void finish();
    void wakeConsumer();
    void freeWaiting();

    // Shared by all threads
    alignas(64) std::atomic<Node*> newest;
    std::atomic<bool> closed{false};
    std::atomic<bool> sleeping{false};
    Event awake;
    const std::function<void()> callWaker;
    std::atomic<Node*> handled;
    std::atomic<std::uint64_t> handledSoFar{0};
    Pool pool;

    // The consumer's. The nodes from `oldest` to the one before `current` are not yet free.
    alignas(64) Node* current;
    Node* oldest;
    int depth = 0;

    // While the queue is closed, any thread may consume, one at a time. While it is open the consumer takes no lock, so
    // no member is marked as guarded.
    Mutex closing;
};
