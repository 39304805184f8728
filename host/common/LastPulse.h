#pragma once

#include <cstdint>

namespace Host
{
/// The latest time, in pulses from the start, that a performance may name. The player's counter has 32 bits and starts
/// at 50000000; what is left above this time is room for the tail.
inline constexpr std::int32_t LAST_PULSE = 2'000'000'000;
}  // namespace Host
