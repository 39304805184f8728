#include "platform/Clock.h"

#include <windows.h>

// Not `timeGetTime`, whose steps are as long as the system's timer has them at the moment.
std::uint32_t monotonicMilliseconds()
{
    static const std::int64_t perSecond = [] {
        LARGE_INTEGER frequency;
        QueryPerformanceFrequency(&frequency);
        return frequency.QuadPart;
    }();
    LARGE_INTEGER now;
    QueryPerformanceCounter(&now);
    const std::int64_t rest = now.QuadPart % perSecond;
    return static_cast<std::uint32_t>(now.QuadPart / perSecond * 1000 + rest * 1000 / perSecond);
}

std::tm localTime(std::time_t time)
{
    std::tm local{};
    localtime_s(&local, &time);
    return local;
}
