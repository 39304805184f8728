#pragma once

#include "api/OrvIF.h"
#include "host/performance/PerformanceCommand.h"

namespace Host
{
/// Posts a command of a performance to the backend; `window` gets the result of saving the record. Any thread.
void post(Backend::OrvIF& orv, const Command& command, const WindowHandle& window);
}  // namespace Host
