#pragma once

#include <memory>
#include <string>
#include <vector>

#include <jack/jack.h>

#include "host/ports/Port.h"

namespace Host
{
struct JackCloser {
    void operator()(jack_client_t* client) const { jack_client_close(client); }
};
using JackClient = std::unique_ptr<jack_client_t, JackCloser>;

/// Opens a client of the running JACK server; null if there is none. Starts no server and prints nothing. If the name
/// is in use, the server assigns a similar one.
JackClient openJackClient(const std::string& name);

/// The longest name of a client, in bytes.
std::size_t longestJackClientName();

/// The names of the two free ports, which the user connects, and the prefixes of the ports that belong to a device.
inline constexpr const char* FREE_INPUT = "Orvane In";
inline constexpr const char* FREE_OUTPUT = "Orvane Out";
inline constexpr const char* FROM_DEVICE = "from ";
inline constexpr const char* TO_DEVICE = "to ";

/// The MIDI outputs (`JackPortIsOutput`) or inputs (`JackPortIsInput`) of other clients, in the server's order; the
/// address is the full name, "client:port". Of another Orvane only the free ports are included: otherwise two of them
/// would add ports for each other's ports without end.
std::vector<MidiDevice> findForeignMidiPorts(jack_client_t* client, JackPortFlags direction);

/// The ports of `client` itself, by their full names.
std::vector<std::string> findOwnPorts(jack_client_t* client);

/// The ports that a port of `client` itself is connected to, by their full names.
std::vector<std::string> findConnections(jack_client_t* client, const std::string& ownPort);

/// The sound card's outputs, left before right.
std::vector<std::string> findPlaybackPorts(jack_client_t* client);
}  // namespace Host
