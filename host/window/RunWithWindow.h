#pragma once

#include <string>

#include "host/run/RunOptions.h"

namespace Host
{
/// Plays with a window, on the platform that `findDesktop` found, until the window is closed or a signal ends it.
/// Returns the exit status. Throws InputError if an option is invalid. The main thread.
///
/// If a window is open already and the options name nothing but files, that window comes to the front and loads them.
int runWithWindow(const RunOptions& options, const std::string& platform);
}  // namespace Host
