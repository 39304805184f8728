#pragma once

#include <set>
#include <string>
#include <utility>

#include "host/jack/JackClient.h"

namespace Host
{
/// Two ports of a graph that are joined, from an output to an input, by their full names. Of a port of our own the
/// client's name is left away (":Orvane Out"): the next server may give us another one.
using Wire = std::pair<std::string, std::string>;

/// What our ports are joined to, and what they were joined to until the other end, or the whole graph, went: that is
/// joined again as soon as both ends are there. What is taken apart while both ends stand is forgotten. The control
/// thread.
class JackWiring
{
public:
    /// Looks at the graph. `portsChanged`: ports came or went since the last look. Returns what stood at the last look
    /// and does no longer.
    std::set<Wire> look(jack_client_t* client, bool portsChanged);

    /// Joins what came back. True if there was any.
    bool mend(jack_client_t* client);

    /// The graph is gone with all wires.
    void lose();

    /// Joins two ports, and again after a loss. 0, or the server's error.
    int join(jack_client_t* client, const Wire& wire);

    /// Takes two ports apart for good.
    void part(jack_client_t* client, const Wire& wire);

    /// Whether these two were joined at the last look; one of them is our own.
    bool stands(const Wire& wire) const { return stood.contains(wire); }

    /// Whether a port of ours was joined to anything at the last look, or is to be again.
    bool isWired(const std::string& ownPort) const;

    /// Is not joined again.
    void forget(const Wire& wire) { lost.erase(wire); }

    /// The wires that stand and did not when this was last asked, or were cut meanwhile.
    std::set<Wire> takeNew();

    static bool isOwn(const std::string& port) { return port.starts_with(':'); }

private:
    std::set<Wire> stood;    // at the last look, those of our own ports
    std::set<Wire> foreign;  // that we made between others
    std::set<Wire> lost;
    std::set<Wire> known;  // when the new ones were last asked for
};
}  // namespace Host
