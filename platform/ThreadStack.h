#pragma once

#include <cstddef>

#include "platform/Export.h"

/// The stack of every thread that is started from now on without a size of its own, those of libraries too: `bytes`, at
/// least 64 KiB, instead of the system's limit for the first thread, which is usually 8 MiB. To be called before any
/// thread is started. Windows, where a stack takes memory only as it is used, ignores it.
ORV_API void setThreadStack(std::size_t bytes);
