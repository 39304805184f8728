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

/// A client of the JACK server that runs, or null. Starts no server and prints nothing. If another client has the name
/// the server gives a similar one.
JackClient openJackClient(const std::string& name);

/// The longest name of a client, in bytes.
std::size_t longestClientName();

/// Whether a client can have that name.
bool isClientName(const std::string& name);

/// The two ports to patch freely, and what the others begin with, which stand for a device each.
inline constexpr const char* FREE_INPUT = "Orvane In";
inline constexpr const char* FREE_OUTPUT = "Orvane Out";
inline constexpr const char* FROM_DEVICE = "from ";
inline constexpr const char* TO_DEVICE = "to ";

/// The MIDI ports of other clients that send to us (`JackPortIsOutput`) or that we can send to (`JackPortIsInput`), in
/// the server's order; their addresses are their full names, "client:port". Of another Orvane only the ports to patch
/// freely: two that gave each other a port for every port would never come to an end.
std::vector<MidiDevice> findForeignMidiPorts(jack_client_t* client, JackPortFlags direction);

/// All ports of `client` itself, by their full names.
std::vector<std::string> findOwnPorts(jack_client_t* client);

/// What a port of `client` itself is joined to, by full names.
std::vector<std::string> findConnections(jack_client_t* client, const std::string& ownPort);

/// The sound card's outputs, left before right.
std::vector<std::string> findPlaybackPorts(jack_client_t* client);
}  // namespace Host
