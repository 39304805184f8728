#pragma once

#include "host/run/RunOptions.h"

/// `orvane` without a subcommand: plays live with a window; without a display, plays live without one; without a MIDI
/// system and sound output either, renders the demonstration. In a session if a session manager started it. Returns the
/// exit status.
int open(Host::RunOptions options);
