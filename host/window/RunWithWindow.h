#pragma once

#include <string>

#include "host/run/RunOptions.h"

namespace Host
{
/// Plays with a window, on the platform that `findDesktop` found, until it is closed or a signal ends it; returns the
/// exit status. Throws InputError if an option cannot be meant. The main thread.
///
/// Where a window is open already, and nothing but files is asked for, that one comes to the front and loads them.
int runWithWindow(const RunOptions& options, const std::string& platform);
}  // namespace Host
