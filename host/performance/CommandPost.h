#pragma once

#include "backend/core/OrvMessageManager.h"
#include "host/performance/PerformanceCommand.h"

namespace Host
{
/// Posts a command of a performance to the backend. Any thread.
void post(Backend::OrvMessageManager& backend, const Command& command);
}  // namespace Host
