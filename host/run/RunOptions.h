#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/common/SetupFile.h"

namespace Host
{
inline constexpr const char* FIRST_CLIENT_NAME = "orvane";

/// The name under which live playing keeps its settings.
inline constexpr const char* APPLICATION_NAME = "Orvane 3";

class Session;

/// What live playing was told on the command line, and by the session manager that started it.
struct RunOptions {
    std::string client = FIRST_CLIENT_NAME;    ///< name in the JACK graph or the ALSA sequencer
    std::vector<std::string> connections;      ///< "A=B": JACK ports to join, each by its name
    std::optional<std::string> defaultOutput;  ///< an output's number or name
    std::optional<int> tempo;                  ///< beats per minute, 20 to 250
    std::optional<std::string> clockIn;        ///< an input's number or name: its MIDI clock is followed
    std::optional<std::string> clockOut;       ///< an output's number or name: it gets a MIDI clock
    bool transport = false;                    ///< the JACK transport is followed
    Setup setup;                               ///< what it begins with
    bool keys = false;                         ///< plays from the terminal's keys instead of reading commands
    bool status = false;                       ///< a line once a second on standard output
    bool display = false;                      ///< the display's lines on standard output, or its screen in the window
    Session* session = nullptr;                ///< the one it plays in, which outlives it; null for none

    bool operator==(const RunOptions&) const = default;
};

/// Two JACK ports, each by its name.
struct Connection {
    std::string from;
    std::string to;
};

/// Throws InputError if one is not "A=B".
std::vector<Connection> parseConnections(const std::vector<std::string>& texts);

/// Throws InputError with one line if something cannot be meant, whatever devices there are: a name that no client can
/// have, a file that cannot be loaded, a program that the last bank has not.
void checkRunOptions(const RunOptions& options);
}  // namespace Host
