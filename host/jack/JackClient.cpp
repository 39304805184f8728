#include "host/jack/JackClient.h"

#include <jack/metadata.h>

#include "host/common/InputError.h"
#include "host/jack/SharedMemory.h"

namespace Host
{
namespace
{
void printNothing(const char*) {}

struct JackFree {
    template <class Memory>
    void operator()(Memory* memory) const
    {
        jack_free(const_cast<std::remove_const_t<Memory>*>(memory));
    }
};

/// The names in a list allocated by JACK, which is freed.
std::vector<std::string> takeNames(const char** list)
{
    std::vector<std::string> names;
    const std::unique_ptr<const char*, JackFree> owned(list);
    for (const char** name = list; name != nullptr && *name != nullptr; ++name) names.emplace_back(*name);
    return names;
}

std::vector<std::string> findPorts(jack_client_t* client, const char* type, unsigned long flags)
{
    return takeNames(jack_get_ports(client, nullptr, type, flags));
}

bool belongsToADevice(jack_client_t* client, const std::string& jackName)
{
    const auto colon = jackName.find(':');
    if (colon == std::string::npos) return false;
    const std::string_view own = std::string_view(jackName).substr(colon + 1);
    if (!own.starts_with(FROM_DEVICE) && !own.starts_with(TO_DEVICE)) return false;
    return jack_port_by_name(client, (jackName.substr(0, colon + 1) + FREE_INPUT).c_str()) != nullptr;
}

std::string prettyName(jack_port_t* port)
{
    char* value = nullptr;
    char* type = nullptr;
    if (jack_get_property(jack_port_uuid(port), JACK_METADATA_PRETTY_NAME, &value, &type) != 0) return {};
    const std::unique_ptr<char, JackFree> ownedValue(value);
    const std::unique_ptr<char, JackFree> ownedType(type);
    return value;
}

// A hardware port is called "system:midi_capture_3"; the device's own name is its first alias.
std::string firstAlias(jack_port_t* port)
{
    std::vector<char> first(static_cast<std::size_t>(jack_port_name_size()));
    std::vector<char> second(first.size());
    char* aliases[2] = {first.data(), second.data()};
    return jack_port_get_aliases(port, aliases) > 0 ? first.data() : std::string();
}

std::string shownName(jack_client_t* client, const std::string& jackName)
{
    jack_port_t* port = jack_port_by_name(client, jackName.c_str());
    if (port == nullptr) return jackName;
    std::string name = prettyName(port);
    if (name.empty() && (jack_port_flags(port) & JackPortIsPhysical) != 0) name = firstAlias(port);
    return name.empty() ? jackName : name;
}
}  // namespace

JackClient openJackClient(const std::string& name)
{
    jack_set_error_function(printNothing);
    jack_set_info_function(printNothing);
    JackClient client(jack_client_open(name.c_str(), JackNoStartServer, nullptr));
    if (client) unlockJackMemory();
    return client;
}

std::size_t longestJackClientName() { return static_cast<std::size_t>(jack_client_name_size()) - 1; }

std::vector<MidiDevice> findForeignMidiPorts(jack_client_t* client, JackPortFlags direction)
{
    std::vector<MidiDevice> ports;
    for (const std::string& name : findPorts(client, JACK_DEFAULT_MIDI_TYPE, direction)) {
        jack_port_t* port = jack_port_by_name(client, name.c_str());
        if (port == nullptr || jack_port_is_mine(client, port) || belongsToADevice(client, name)) continue;
        ports.push_back({name, shownName(client, name)});
    }
    return ports;
}

std::vector<std::string> findOwnPorts(jack_client_t* client)
{
    auto names = findPorts(client, nullptr, 0);
    std::erase_if(names, [&](const std::string& name) {
        jack_port_t* port = jack_port_by_name(client, name.c_str());
        return port == nullptr || !jack_port_is_mine(client, port);
    });
    return names;
}

std::vector<std::string> findConnections(jack_client_t* client, const std::string& ownPort)
{
    jack_port_t* port = jack_port_by_name(client, ownPort.c_str());
    return port == nullptr ? std::vector<std::string>() : takeNames(jack_port_get_all_connections(client, port));
}

std::vector<std::string> findPlaybackPorts(jack_client_t* client)
{
    return findPorts(client, JACK_DEFAULT_AUDIO_TYPE, JackPortIsInput | JackPortIsPhysical);
}
}  // namespace Host
