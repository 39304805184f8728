#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "host/SetupFile.h"

namespace Host
{
inline constexpr const char* VERSION = "Orvane 3.2";
inline constexpr const char* FIRST_CLIENT_NAME = "orvane";

/// What `orvane run` was told on the command line.
struct RunOptions {
    std::string client = FIRST_CLIENT_NAME;    ///< name in the JACK graph or the ALSA sequencer
    std::vector<std::string> connections;      ///< "A=B": JACK ports to join, each by its name
    std::optional<std::string> defaultOutput;  ///< an output's number or name
    std::optional<int> tempo;                  ///< beats per minute, 20 to 250
    Setup setup;                               ///< what it begins with
    bool keys = false;                         ///< plays from the terminal's keys instead of reading commands
    bool status = false;                       ///< a line once a second on standard output
    bool display = false;                      ///< the display's lines on standard output
};

/// Plays until a signal ends it, reading commands or keys from standard input; returns the exit status. Throws
/// InputError if an option cannot be meant. Where neither sound nor MIDI is possible it plays all the same, unless
/// there is something else to do: `otherwise`, whose result is then the exit status.
int run(const RunOptions& options, const std::function<int()>& otherwise = {});

/// Lists the ports as `run` would have them.
int listPorts(const std::string& client);
}  // namespace Host
