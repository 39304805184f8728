#pragma once

#include "host/run/RunOptions.h"

/// `orvane` by itself: plays with a window, or without one where there is no display, or renders the demonstration
/// where nothing can be heard either; in a session, where a session manager started it. Returns the exit status.
int open(Host::RunOptions options);
