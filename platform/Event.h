#pragma once

#include <atomic>
#include <chrono>
#include <memory>

#include "platform/Export.h"

/// An auto-reset event: not signalled at creation, `set` lets one waiter through, setting it twice before somebody
/// waits counts once. What was written before `set` is seen after `wait`. `set` never blocks and takes no lock.
class ORV_API Event
{
public:
    Event();
    ~Event();

    Event(const Event&) = delete;
    Event& operator=(const Event&) = delete;

    void set();
    void wait();

    /// False if nobody set the event within that time.
    bool waitFor(std::chrono::milliseconds longest);

private:
    struct Semaphore;
    std::unique_ptr<Semaphore> semaphore;
    std::atomic<bool> signalled{false};
};
