#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <mutex>
#include <vector>

#include "platform/Event.h"
#include "platform/Export.h"
#include "platform/Message.h"

/// The queue between threads: any number of posters, one consumer. It never drops a message, and all posters together
/// make one total order in which a cause comes before its effect (the order of exchanges on one atomic pointer).
///
/// The time slice is a poster of its own: `postFromSlice` is one exchange and one store, takes its nodes from a pool
/// that the consumer fills, and wakes nobody; `wake` does that once the engine lock is left.
///
/// A queue is open from construction. Once closed it frees at once what is posted to it.
class ORV_API MessageQueue
{
public:
    /// `slicePool`: how many messages the slice may have under way before it must turn to the heap; 0 for a queue to
    /// which no slice posts. Rounded up to a power of two.
    explicit MessageQueue(std::size_t slicePool = 0);
    /// `waker` is for a consumer that sleeps elsewhere, as a window does in its event loop: it is called in place of
    /// waking `waitForMessage`, on whichever thread posted, and must neither block nor allocate.
    MessageQueue(std::size_t slicePool, std::function<void()> waker);
    ~MessageQueue();

    MessageQueue(const MessageQueue&) = delete;
    MessageQueue& operator=(const MessageQueue&) = delete;

    /// Any thread but the time slice. May allocate; wakes the consumer.
    void post(Message message);

    /// Inside a time slice only (one poster at a time, ordered by the engine lock). Wait-free.
    void postFromSlice(Message message);

    /// Wakes the consumer if it sleeps. Any thread, outside the engine lock.
    void wake();

    /// Gives the oldest message to `handle(Message&)`; false if none waits. Consumer only; may be called again from
    /// inside `handle`, as a modal message loop does.
    template <class Handle>
    bool handleNext(Handle&& handle)
    {
        Message message;
        if (!take(message)) return false;
        const Handling handling(*this);
        handle(message);
        // Freed, and its waiter let go, before it counts as handled.
        [[maybe_unused]] const Message gone = std::move(message);
        return true;
    }

    /// Whether a message waits behind the one being handled. Consumer only.
    bool hasNext() const { return current->next.load(std::memory_order_acquire) != nullptr; }

    /// Sleeps until a message waits. Consumer only.
    void waitForMessage();
    /// The same, at most that long; false if none came.
    bool waitForMessage(std::chrono::milliseconds longest);

    /// The consumer goes to sleep elsewhere: the next post calls the waker. False if a message waits already. Consumer
    /// only.
    bool fallAsleep();

    /// From now on what waits and what is posted is freed at once. The consumer calls it when it takes no more, or
    /// whoever has joined the consumer.
    void close();
    void open();

    /// True if every posted message has been handled to its end. Any thread.
    bool isDrained() const { return newest.load() == handled.load(); }

    /// Grows with every message handled. Any thread.
    std::uint64_t handledCount() const { return handledSoFar.load(); }

private:
    struct Node {
        std::atomic<Node*> next{nullptr};
        Message message;
    };

    /// Nodes on their way back to the slice: written by the consumer, read by the slice.
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

    /// Marks what was taken as handled when the outermost handler returns.
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
    void ring();
    void freeWhatWaits();

    // Crossed by all threads
    alignas(64) std::atomic<Node*> newest;
    std::atomic<bool> closed{false};
    std::atomic<bool> sleeping{false};
    Event awake;
    const std::function<void()> callWaker;
    std::atomic<Node*> handled;
    std::atomic<std::uint64_t> handledSoFar{0};
    Pool pool;

    // The consumer's own. `oldest` up to, not including, `current` are nodes not yet given back.
    alignas(64) Node* current;
    Node* oldest;
    int depth = 0;

    // Guards the consumer's part once the queue is closed
    std::mutex closing;
};
