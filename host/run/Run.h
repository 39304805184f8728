#pragma once

#include <functional>
#include <string>

#include "host/run/RunOptions.h"

namespace Host
{
inline constexpr const char* VERSION = "Orvane 3.2";

/// Plays until a signal ends it, reading commands or keys from standard input; returns the exit status. Throws
/// InputError if an option cannot be meant. Where neither sound nor MIDI is possible it plays all the same, unless
/// there is something else to do: `otherwise`, whose result is then the exit status.
int run(const RunOptions& options, const std::function<int()>& otherwise = {});

/// Lists the ports as `run` would have them.
int listPorts(const std::string& client);
}  // namespace Host
