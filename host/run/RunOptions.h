#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/common/SetupFile.h"
#include "host/session/Session.h"

namespace Host
{
inline constexpr const char* FIRST_CLIENT_NAME = "orvane";

/// How to play live: what the command line says, and the session manager that started the program.
struct RunOptions {
    std::string client = FIRST_CLIENT_NAME;    ///< name in the JACK graph or the ALSA sequencer
    std::vector<std::string> connections;      ///< "A=B": JACK ports to connect, each by its name
    std::optional<std::string> defaultOutput;  ///< an output's number or name
    std::optional<int> tempo;                  ///< beats per minute, 20 to 250
    std::optional<std::string> clockIn;        ///< an input's number or name: the tempo follows its MIDI clock
    std::optional<std::string> clockOut;       ///< an output's number or name: a MIDI clock is sent to it
    bool transport = false;                    ///< the tempo follows the JACK transport
    Setup setup;                               ///< what is loaded at the start
    bool keys = false;                         ///< the terminal's keys play, and no commands are read
    bool status = false;                       ///< a status line on standard output, once a second
    bool display = false;                      ///< the display's lines on standard output, or its screen in the window
    Session* session = nullptr;                ///< outlives live playing; null for none

    bool operator==(const RunOptions&) const = default;
};

/// Opens the session of the session manager that started the program, and puts it into the options, which it must
/// outlive: see `Session::open`. Null if there is none.
std::unique_ptr<Session> openSession(RunOptions& options);

/// Two JACK ports, each by its name.
struct Connection {
    std::string from;
    std::string to;
};

/// Throws InputError if a text is not "A=B".
std::vector<Connection> parseConnections(const std::vector<std::string>& texts);

/// Throws InputError if no client of a JACK server can have that name.
void checkClientName(const std::string& name);

/// Throws InputError with one line if an option is invalid on any machine: an impossible client name, a file that
/// cannot be loaded, a program number that the last bank does not have.
void checkRunOptions(const RunOptions& options);
}  // namespace Host
