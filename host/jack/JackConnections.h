#pragma once

#include <set>
#include <string>
#include <utility>

#include "host/jack/JackClient.h"

namespace Host
{
/// A connection of two ports of the graph, output and input, by their full names. The name of a port of our own client
/// has no client name (":Orvane Out"), because the client may have another name at the next server.
using JackConnection = std::pair<std::string, std::string>;

/// The connections of our ports, present and lost. A connection is lost when the port at its other end, or the server,
/// goes; it is made again as soon as both ports are present. A connection that is removed while both ports are present
/// is forgotten. Control thread.
class JackConnections
{
public:
    /// Reads the connections from the graph. `portsChanged`: ports were registered or unregistered since the last call.
    /// Returns the connections that have gone since then.
    std::set<JackConnection> update(jack_client_t* client, bool portsChanged);

    /// Makes lost connections again where both ports are present. True if there were any.
    bool restore(jack_client_t* client);

    /// The server is gone: all connections are lost.
    void markAllLost();

    /// Connects two ports, which may both be those of other clients. 0, or the server's error.
    int connect(jack_client_t* client, const JackConnection& connection);

    /// Disconnects two ports and forgets the connection.
    void disconnect(jack_client_t* client, const JackConnection& connection);

    /// The connection, of a port of our own, was present at the last update.
    bool isPresent(const JackConnection& connection) const { return present.contains(connection); }

    /// The port of our own had a connection at the last update, or has a lost one.
    bool hasAny(const std::string& ownPort) const;

    /// The connection is not made again.
    void forget(const JackConnection& connection) { lost.erase(connection); }

    /// The connections made since the last call, including those removed and made again.
    std::set<JackConnection> takeNew();

    /// A port of our own client.
    static bool isOwn(const std::string& port) { return port.starts_with(':'); }

private:
    std::set<JackConnection> present;  // of our own ports, at the last update
    std::set<JackConnection> foreign;  // made by us between ports of other clients
    std::set<JackConnection> lost;
    std::set<JackConnection> known;  // at the last `takeNew`
};
}  // namespace Host
