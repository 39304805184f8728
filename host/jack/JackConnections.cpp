#include "host/jack/JackConnections.h"

#include <algorithm>
#include <cerrno>
#include <iterator>

namespace Host
{
namespace
{
constexpr std::size_t MOST_LOST = 1000;  // programs that never come back have their names in it

std::string fullName(jack_client_t* client, const std::string& port)
{
    return JackWiring::isOwn(port) ? jack_get_client_name(client) + port : port;
}

std::string withoutClient(jack_client_t* client, const std::string& port)
{
    const std::string own = jack_get_client_name(client);
    return port.starts_with(own + ":") ? port.substr(own.size()) : port;
}

bool exists(jack_client_t* client, const std::string& port)
{
    return jack_port_by_name(client, fullName(client, port).c_str()) != nullptr;
}

bool bothExist(jack_client_t* client, const Wire& wire)
{
    return exists(client, wire.first) && exists(client, wire.second);
}

// A port of ours that is gone stood for a device; whoever enters that again joins the two.
bool ownEndExists(jack_client_t* client, const Wire& wire)
{
    return exists(client, JackWiring::isOwn(wire.first) ? wire.first : wire.second);
}

int connect(jack_client_t* client, const Wire& wire)
{
    const int result =
        jack_connect(client, fullName(client, wire.first).c_str(), fullName(client, wire.second).c_str());
    return result == EEXIST ? 0 : result;
}

std::set<Wire> findWires(jack_client_t* client)
{
    std::set<Wire> wires;
    for (const std::string& port : findOwnPorts(client)) {
        const bool sends = (jack_port_flags(jack_port_by_name(client, port.c_str())) & JackPortIsOutput) != 0;
        const std::string own = withoutClient(client, port);
        for (const std::string& end : findConnections(client, port)) {
            const std::string other = withoutClient(client, end);
            wires.insert(sends ? Wire(own, other) : Wire(other, own));
        }
    }
    return wires;
}

std::set<Wire> without(const std::set<Wire>& wires, const std::set<Wire>& others)
{
    std::set<Wire> rest;
    std::ranges::set_difference(wires, others, std::inserter(rest, rest.end()));
    return rest;
}
}  // namespace

std::set<Wire> JackWiring::look(jack_client_t* client, bool portsChanged)
{
    auto present = findWires(client);
    const auto cut = without(stood, present);
    for (const Wire& wire : cut)
        if (ownEndExists(client, wire) && (portsChanged || !bothExist(client, wire)) && lost.size() < MOST_LOST)
            lost.insert(wire);
    stood = std::move(present);
    known = without(known, cut);
    return cut;
}

bool JackWiring::mend(jack_client_t* client)
{
    const auto joined = [&](const Wire& wire) { return bothExist(client, wire) && connect(client, wire) == 0; };
    if (std::erase_if(lost, joined) == 0) return false;
    stood = findWires(client);
    return true;
}

void JackWiring::lose()
{
    lost.merge(stood);
    stood.clear();
    known.clear();
    lost.insert(foreign.begin(), foreign.end());
}

int JackWiring::join(jack_client_t* client, const Wire& wire)
{
    const Wire kept{withoutClient(client, wire.first), withoutClient(client, wire.second)};
    const int result = connect(client, kept);
    if (result == 0 && !isOwn(kept.first) && !isOwn(kept.second)) foreign.insert(kept);
    return result;
}

void JackWiring::part(jack_client_t* client, const Wire& wire)
{
    jack_disconnect(client, fullName(client, wire.first).c_str(), fullName(client, wire.second).c_str());
    stood.erase(wire);
    lost.erase(wire);
}

bool JackWiring::isWired(const std::string& ownPort) const
{
    const auto ends = [&](const Wire& wire) { return wire.first == ownPort || wire.second == ownPort; };
    return std::ranges::any_of(stood, ends) || std::ranges::any_of(lost, ends);
}

std::set<Wire> JackWiring::takeNew()
{
    auto added = without(stood, known);
    known = stood;
    return added;
}
}  // namespace Host
