#pragma once

#include <cstdint>

namespace Host
{
/// The latest time of a command, in pulses from the start. The pulse counter has 32 bits and starts at 50000000; the
/// range above this time is left for the tail.
inline constexpr std::int32_t LAST_PULSE = 2'000'000'000;
}  // namespace Host
