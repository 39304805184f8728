#include "platform/Clock.h"

#include <ctime>

std::uint32_t monotonicMilliseconds()
{
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<std::uint32_t>(static_cast<std::uint64_t>(now.tv_sec) * 1000u +
                                      static_cast<std::uint64_t>(now.tv_nsec) / 1000000u);
}
