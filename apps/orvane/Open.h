#pragma once

#include "host/run/RunOptions.h"

/// `orvane` by itself: plays with a window, or without one where there is no display, or renders the demonstration
/// where nothing can be heard either. Returns the exit status.
int open(const Host::RunOptions& options);
