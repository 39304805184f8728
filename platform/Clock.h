#pragma once

#include <cstdint>

#include "platform/Export.h"

/// Milliseconds of a monotonic clock; wraps to 0 after 49.7 days. Any thread, no system call on Linux.
ORV_API std::uint32_t monotonicMilliseconds();
