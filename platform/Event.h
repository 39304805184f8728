#pragma once

#include <atomic>
#include <chrono>
#include <memory>

#include "platform/Export.h"

/// An auto-reset event: not signalled at creation; `set` releases one waiting thread; two calls of `set` before a wait
/// count as one. Writes before `set` are visible after `wait`. `set` never blocks, takes no lock and may be called in a
/// signal handler.
class ORV_API Event
{
public:
    Event();
    ~Event();

    Event(const Event&) = delete;
    Event& operator=(const Event&) = delete;

    void set();
    void wait();

    /// False if the event was not set within that time.
    bool waitFor(std::chrono::milliseconds longest);

private:
    struct Semaphore;
    std::unique_ptr<Semaphore> semaphore;
    std::atomic<bool> signalled{false};
};
