#include "platform/Clock.h"

std::uint32_t monotonicMilliseconds()
{
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<std::uint32_t>(static_cast<std::uint64_t>(now.tv_sec) * 1000u +
                                      static_cast<std::uint64_t>(now.tv_nsec) / 1000000u);
}

std::tm localTime(std::time_t time)
{
    std::tm local{};
    localtime_r(&time, &local);
    return local;
}
