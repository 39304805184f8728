#include "host/clock/TickTimer.h"

#include <windows.h>

#include <mmsystem.h>

#include <algorithm>

namespace Host
{
namespace
{
constexpr UINT RESOLUTION = 1;  // milliseconds; without a request it is about 16
}

TickTimer::TickTimer() { timeBeginPeriod(RESOLUTION); }

TickTimer::~TickTimer() { timeEndPeriod(RESOLUTION); }

// Sleep may return early.
void TickTimer::sleepUntil(std::chrono::steady_clock::time_point time) const
{
    for (auto now = std::chrono::steady_clock::now(); now < time; now = std::chrono::steady_clock::now()) {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(time - now);
        Sleep(static_cast<DWORD>(std::max<std::int64_t>(left.count(), 1)));
    }
}
}  // namespace Host
