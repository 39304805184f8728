#include "host/clock/TickTimer.h"

#include <thread>

namespace Host
{
TickTimer::TickTimer() = default;

TickTimer::~TickTimer() = default;

void TickTimer::sleepUntil(std::chrono::steady_clock::time_point time) const { std::this_thread::sleep_until(time); }
}  // namespace Host
