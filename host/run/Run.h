#pragma once

#include <functional>
#include <string>

#include "host/run/RunOptions.h"

namespace Host
{
inline constexpr const char* VERSION = "Orvane 3.2";

/// Plays until a signal ends it, and reads commands or keys from standard input meanwhile. Returns the exit status.
/// Throws InputError if an option is invalid. If there is neither a MIDI system nor a sound output, `otherwise` is
/// called instead and its result returned; without `otherwise` it plays all the same.
int run(const RunOptions& options, const std::function<int()>& otherwise = {});

/// Prints the ports as `run` would have them. Returns the exit status.
int listPorts(const std::string& client);
}  // namespace Host
