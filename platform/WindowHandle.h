#pragma once

#include <memory>
#include <utility>

#include "platform/MessageQueue.h"

/// The GUI's window as the backend sees it: something to post to. It is a queue that the GUI drains in its event loop.
/// Copies stand for the same window, and an empty handle for none: posts to it are freed.
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
