#pragma once

#include <string>

#include "host/run/RunOptions.h"

namespace Host
{
/// Plays with a window, on the platform that `findDesktop` found, until it is closed or a signal ends it; returns the
/// exit status. Throws InputError if an option cannot be meant. The main thread.
int runWithWindow(const RunOptions& options, const std::string& platform);
}  // namespace Host
