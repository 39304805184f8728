#pragma once

#include <atomic>
#include <functional>
#include <optional>
#include <string>

#include "platform/MessageQueue.h"
#include "platform/Thread.h"

/// A thread that calls one handler with each message of a queue, in order. Messages posted before `start` wait;
/// messages posted after `stop` are freed at once.
class ORV_API Worker
{
public:
    using Handler = std::function<void(Message&)>;

    /// `stopNumber` is the message that ends the thread. `slicePool` as in `MessageQueue`.
    Worker(std::string name, unsigned int stopNumber, Handler handler, std::size_t slicePool = 0);
    ~Worker() { stop(); }

    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;

    /// The thread will request real-time priority. Before `start`.
    void setRealTimeStep(RealTimeStep step) { realTimeStep = step; }

    void start();

    /// Handles the messages posted before, and ends the thread. Returns when it has ended.
    void stop();

    void post(Message message) { messages.post(std::move(message)); }

    /// Posts and waits until the message was handled, or freed because the worker stopped. Not on the worker's thread,
    /// which would wait for itself.
    void send(Message message);

    MessageQueue& queue() { return messages; }
    bool currentThreadIsWorker() const { return currentThreadId() == threadId; }
    bool isRunning() const { return threadId != 0; }

    /// The worker whose thread this is, or null.
    static Worker* current();

    /// A worker that waits for a time slice counts as at rest. Set by the worker's thread before it waits, cleared by
    /// the slice before it releases the worker.
    void setWaiting(bool waits);

    /// Whether the worker has handled all messages, and a count that changes whenever that may have changed in between.
    struct Rest {
        bool resting;
        std::uint64_t changes;
        bool operator==(const Rest&) const = default;
    };
    Rest rest() const;

private:
    void run();

    const std::string name;
    const unsigned int stopNumber;
    const Handler handler;
    MessageQueue messages;
    std::optional<RealTimeStep> realTimeStep;
    std::atomic<ThreadId> threadId{0};
    std::atomic<bool> waiting{false};
    std::atomic<std::uint64_t> waits{0};
    Thread thread;
};
