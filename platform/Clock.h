#pragma once

#include <cstdint>
#include <ctime>

#include "platform/Export.h"

/// Milliseconds of a monotonic clock; wraps to 0 after 49.7 days. Any thread, no system call on Linux.
ORV_API std::uint32_t monotonicMilliseconds();

/// A time in the time zone of the user. Any thread.
ORV_API std::tm localTime(std::time_t time);
