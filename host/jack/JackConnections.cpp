#include "host/jack/JackConnections.h"

#include <algorithm>
#include <cerrno>
#include <iterator>

namespace Host
{
namespace
{
constexpr std::size_t MOST_LOST = 1000;  // programs that never return would fill the set

std::string fullName(jack_client_t* client, const std::string& port)
{
    return JackConnections::isOwn(port) ? jack_get_client_name(client) + port : port;
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

bool bothExist(jack_client_t* client, const JackConnection& connection)
{
    return exists(client, connection.first) && exists(client, connection.second);
}

// A port of our own that is gone belonged to a device, and is connected when the device is added again.
bool ownPortExists(jack_client_t* client, const JackConnection& connection)
{
    return exists(client, JackConnections::isOwn(connection.first) ? connection.first : connection.second);
}

int connectPorts(jack_client_t* client, const JackConnection& connection)
{
    const int result =
        jack_connect(client, fullName(client, connection.first).c_str(), fullName(client, connection.second).c_str());
    return result == EEXIST ? 0 : result;
}

std::set<JackConnection> findAll(jack_client_t* client)
{
    std::set<JackConnection> connections;
    for (const std::string& port : findOwnPorts(client)) {
        const bool sends = (jack_port_flags(jack_port_by_name(client, port.c_str())) & JackPortIsOutput) != 0;
        const std::string own = withoutClient(client, port);
        for (const std::string& end : findConnections(client, port)) {
            const std::string other = withoutClient(client, end);
            connections.insert(sends ? JackConnection(own, other) : JackConnection(other, own));
        }
    }
    return connections;
}

std::set<JackConnection> without(const std::set<JackConnection>& connections, const std::set<JackConnection>& others)
{
    std::set<JackConnection> rest;
    std::ranges::set_difference(connections, others, std::inserter(rest, rest.end()));
    return rest;
}
}  // namespace

std::set<JackConnection> JackConnections::update(jack_client_t* client, bool portsChanged)
{
    auto found = findAll(client);
    const auto gone = without(present, found);
    for (const JackConnection& connection : gone)
        if (ownPortExists(client, connection) && (portsChanged || !bothExist(client, connection)) &&
            lost.size() < MOST_LOST)
            lost.insert(connection);
    present = std::move(found);
    known = without(known, gone);
    return gone;
}

bool JackConnections::restore(jack_client_t* client)
{
    const auto isRestored = [&](const JackConnection& connection) {
        return bothExist(client, connection) && connectPorts(client, connection) == 0;
    };
    if (std::erase_if(lost, isRestored) == 0) return false;
    present = findAll(client);
    return true;
}

void JackConnections::markAllLost()
{
    lost.merge(present);
    present.clear();
    known.clear();
    lost.insert(foreign.begin(), foreign.end());
}

int JackConnections::connect(jack_client_t* client, const JackConnection& connection)
{
    const JackConnection kept{withoutClient(client, connection.first), withoutClient(client, connection.second)};
    const int result = connectPorts(client, kept);
    if (result == 0 && !isOwn(kept.first) && !isOwn(kept.second)) foreign.insert(kept);
    return result;
}

void JackConnections::disconnect(jack_client_t* client, const JackConnection& connection)
{
    jack_disconnect(client, fullName(client, connection.first).c_str(), fullName(client, connection.second).c_str());
    present.erase(connection);
    lost.erase(connection);
}

bool JackConnections::hasAny(const std::string& ownPort) const
{
    const auto ends = [&](const JackConnection& connection) {
        return connection.first == ownPort || connection.second == ownPort;
    };
    return std::ranges::any_of(present, ends) || std::ranges::any_of(lost, ends);
}

std::set<JackConnection> JackConnections::takeNew()
{
    auto added = without(present, known);
    known = present;
    return added;
}
}  // namespace Host
