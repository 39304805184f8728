#pragma once

#include <memory>
#include <utility>

#include "platform/MessageQueue.h"

/// A window as the backend uses it: a queue that the GUI empties in its event loop. Copies refer to the same window. An
/// empty handle refers to none, and messages posted to it are freed.
class WindowHandle
{
public:
    WindowHandle() = default;
    explicit WindowHandle(std::shared_ptr<MessageQueue> window) : queue(std::move(window)) {}

    explicit operator bool() const { return queue != nullptr; }

    void post(Message message) const
    {
        if (queue) queue->post(std::move(message));
    }

    /// As `MessageQueue::postFromSlice`; `wake` follows once the engine lock is left.
    void postFromSlice(Message message) const
    {
        if (queue) queue->postFromSlice(std::move(message));
    }
    void wake() const
    {
        if (queue) queue->wake();
    }

    bool operator==(const WindowHandle&) const = default;

private:
    std::shared_ptr<MessageQueue> queue;
};
