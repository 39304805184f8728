#pragma once

#include <memory>
#include <string>
#include <vector>

#include <jack/jack.h>

namespace Host
{
struct JackCloser {
    void operator()(jack_client_t* client) const { jack_client_close(client); }
};
using JackClient = std::unique_ptr<jack_client_t, JackCloser>;

/// A client of the JACK server that runs, or null. Starts no server and prints nothing. If another client has the name
/// the server gives a similar one.
JackClient openJackClient(const std::string& name);

/// Throws InputError if no client can have that name.
void checkClientName(const std::string& name);

/// A MIDI port of another client.
struct ForeignPort {
    std::string jackName;   ///< "client:port"
    std::string shownName;  ///< as the user knows the device
};

/// Those that send to us (`JackPortIsOutput`) or that we can send to (`JackPortIsInput`), in the server's order.
std::vector<ForeignPort> findForeignMidiPorts(jack_client_t* client, JackPortFlags direction);

/// The sound card's outputs, left before right.
std::vector<std::string> findPlaybackPorts(jack_client_t* client);
}  // namespace Host
