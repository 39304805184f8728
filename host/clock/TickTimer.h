#pragma once

#include <chrono>

namespace Host
{
/// The timer of a thread that sleeps for about a millisecond at a time. While there is an object, the system's timer is
/// fine enough for that.
class TickTimer
{
public:
    TickTimer();
    ~TickTimer();

    TickTimer(const TickTimer&) = delete;
    TickTimer& operator=(const TickTimer&) = delete;

    /// Never returns before that time.
    void sleepUntil(std::chrono::steady_clock::time_point time) const;
};
}  // namespace Host
