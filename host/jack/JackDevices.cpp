#include "host/jack/JackDevices.h"

#include <algorithm>
#include <stdexcept>

#include "host/devices/MidiSystem.h"
#include "host/jack/JackClient.h"

namespace Host
{
using namespace std::chrono_literals;

namespace
{
constexpr std::size_t SYNTHESIZER = 0;
constexpr auto UNTIL_READY = 300ms;
constexpr auto SETTLING_TIME = 200ms;

// These addresses differ from those of all ports in a graph, which begin with the name of a client.
const MidiDevice SYNTHESIZER_DEVICE{":synthesizer", SYNTHESIZER_NAME};
const MidiDevice FREE_INPUT_DEVICE{":in", FREE_INPUT};
const MidiDevice FREE_OUTPUT_DEVICE{":out", FREE_OUTPUT};

bool belongsToADevice(const Port& port) { return !port.device.address.starts_with(':'); }

std::string shortNameOf(jack_port_t* own) { return std::string(":") + jack_port_short_name(own); }
}  // namespace

void JackDevices::enterGraph(jack_client_t* newClient)
{
    client = newClient;
    ports.outputs()[SYNTHESIZER]->found = false;  // as every device before the first scan
    newDevices.clear();
    newOutputs.clear();
    updateDevices(NewDevices::atOnce);
}

void JackDevices::close()
{
    for (const auto& input : ports.inputs()) input->open.store(false);
    for (const auto& output : ports.outputs()) output->close();
}

void JackDevices::leaveGraph()
{
    client = nullptr;
    connections.markAllLost();
    outputsToDisconnect.clear();
    receiversReadyAt.reset();
    for (auto* own : {&callbacks.inputs, &callbacks.outputs})
        for (auto& port : *own) port.store(nullptr);
    for (const auto& input : ports.inputs()) input->found = false;
    for (const auto& output : ports.outputs()) {
        output->found = false;
        output->unplug();
    }
    // The synthesizer is still present, but has no audio ports.
    ports.outputs()[SYNTHESIZER]->found = true;
    ports.outputs()[SYNTHESIZER]->couldNotOpen = true;
}

bool JackDevices::refresh()
{
    processXruns();
    updateNewReceivers();
    if (!outputsToDisconnect.empty()) disconnectOutputs();
    // Calls of a server that hangs would not return.
    if ((!callbacks.portsChanged && !callbacks.connectionsChanged) || !callbacks.waitFor(1)) return false;
    if (callbacks.portsChanged.exchange(false)) return updateDevices(NewDevices::delayed);
    if (callbacks.connectionsChanged.exchange(false)) updateConnections(false);
    return false;
}

// --- devices

bool JackDevices::updateDevices(NewDevices whenNew)
{
    bool changed = false;
    const auto markChange = [&](void (JackDevices::*change)(std::size_t)) {
        return [this, &changed, change](std::size_t index) {
            (this->*change)(index);
            changed = true;
        };
    };
    auto sources = findForeignMidiPorts(client, JackPortIsOutput);
    auto sinks = findForeignMidiPorts(client, JackPortIsInput);
    if (whenNew == NewDevices::delayed) {
        sources = withoutNew(std::move(sources));
        sinks = withoutNew(std::move(sinks));
    }
    sources.insert(sources.begin(), FREE_INPUT_DEVICE);
    sinks.insert(sinks.begin(), {SYNTHESIZER_DEVICE, FREE_OUTPUT_DEVICE});
    ports.assignInputs(sources, markChange(&JackDevices::removeInput), markChange(&JackDevices::addInput));
    ports.assignOutputs(sinks, markChange(&JackDevices::removeOutput), markChange(&JackDevices::addOutput));
    updateConnections(true);
    openNewOutputs();
    return changed;
}

/// Removes devices that were registered a moment ago: a new port often gets its pretty name and its connections only
/// after it was registered.
std::vector<MidiDevice> JackDevices::withoutNew(std::vector<MidiDevice> found)
{
    const auto now = std::chrono::steady_clock::now();
    std::erase_if(found, [&](const MidiDevice& device) {
        const auto isIt = [&](const auto& port) { return port->found && port->device.address == device.address; };
        if (std::ranges::any_of(ports.inputs(), isIt) || std::ranges::any_of(ports.outputs(), isIt)) return false;
        const Time since = newDevices.try_emplace(device.address, now).first->second;
        if (now - since < SETTLING_TIME) {
            callbacks.portsChanged.store(true);  // look again
            return true;
        }
        newDevices.erase(device.address);
        return false;
    });
    std::erase_if(newDevices, [&](const auto& entry) { return now - entry.second > 2 * SETTLING_TIME; });
    return found;
}

/// A receiver that missed a period did not get the note-offs of that period.
bool JackDevices::processXruns()
{
    const std::uint64_t count = callbacks.getXruns();
    if (count == std::exchange(xrunsSeen, count)) return false;
    for (const auto& output : ports.outputs()) output->periodMissed();
    return true;
}

/// A connection may exist before the process callback of the receiver runs.
void JackDevices::updateNewReceivers()
{
    if (!receiversReadyAt || *receiversReadyAt > std::chrono::steady_clock::now()) return;
    receiversReadyAt.reset();
    for (const auto& output : ports.outputs()) output->receiverReady();
}

void JackDevices::updateConnections(bool portsChanged)
{
    for (const JackConnection& gone : connections.update(client, portsChanged)) {
        processDisconnection(gone, portsChanged);
        if (OutputPort* output = findOutput(gone)) output->receiverDisconnected();
    }
    // Messages sent before a connection passes them on would be lost.
    if (connections.restore(client)) callbacks.waitFor(JackCallbacks::UNTIL_CONNECTED);
    if (callbacks.receiver.load() != nullptr) connectInputs();
    for (const JackConnection& added : connections.takeNew()) {
        if (OutputPort* output = findOutput(added)) {
            output->receiverConnected();
            receiversReadyAt = std::chrono::steady_clock::now() + UNTIL_READY;
        }
        reportLoop(added);
    }
}

void JackDevices::reportLoop(const JackConnection& connection)
{
    const auto& [from, to] = connection;
    if (JackConnections::isOwn(from) && JackConnections::isOwn(to))
        news.push_back("A feedback loop: \"" + from.substr(1) + "\" is connected to \"" + to.substr(1) +
                       "\", so messages that are sent there are received again.");
}

/// The output at the beginning of a connection, null for none.
OutputPort* JackDevices::findOutput(const JackConnection& connection) const
{
    for (std::size_t index = 0; index < ports.outputs().size(); ++index)
        if (jack_port_t* own = callbacks.outputs[index]; own != nullptr && shortNameOf(own) == connection.first)
            return ports.outputs()[index].get();
    return nullptr;
}

/// If a connection to one of our inputs is gone, no note-off will arrive for keys that are down. If the device was
/// unplugged and plugged in between two updates, it is connected like a new one.
void JackDevices::processDisconnection(const JackConnection& connection, bool portsChanged)
{
    for (std::size_t index = 0; index < ports.inputs().size(); ++index) {
        jack_port_t* own = callbacks.inputs[index];
        if (own == nullptr || shortNameOf(own) != connection.second) continue;
        disconnectedInputs.insert(index);
        if (!portsChanged || connection != connectionOf(*ports.inputs()[index], own)) continue;
        connections.forget(connection);
        connectAt[index] = std::chrono::steady_clock::now() + SETTLING_TIME;
    }
}

bool JackDevices::isConnectedToFreeInput(const InputPort& port) const
{
    return connections.isPresent({port.device.address, std::string(":") + FREE_INPUT});
}

/// A device that the user connected to "Orvane In" is not received a second time at the port of its own.
void JackDevices::connectInputs()
{
    const auto now = std::chrono::steady_clock::now();
    for (std::size_t index = 0; index < ports.inputs().size(); ++index) {
        const InputPort& port = *ports.inputs()[index];
        jack_port_t* own = callbacks.inputs[index];
        if (own == nullptr || !port.enabled || !belongsToADevice(port)) continue;
        const bool isConnectedNow = connections.isPresent(connectionOf(port, own));
        if (isConnectedToFreeInput(port)) {
            if (isConnectedNow) connections.disconnect(client, connectionOf(port, own));
            connectAt[index] = now;
        } else if (connectAt[index] && *connectAt[index] > now) {
            callbacks.connectionsChanged.store(true);  // look again
        } else if (std::exchange(connectAt[index], std::nullopt) && !isConnectedNow) {
            openInput(index);
        }
    }
}

void JackDevices::addInput(std::size_t index)
{
    InputPort& port = *ports.inputs()[index];
    jack_port_t* own = registerMidi(port, FROM_DEVICE, JackPortIsInput);
    callbacks.inputs[index].store(own);
    port.couldNotOpen = own == nullptr;
    connectAt[index] = std::chrono::steady_clock::now();
    if (own == nullptr) return;
    connections.forget(connectionOf(port, own));
    if (port.enabled) port.open.store(true);  // connected by `connectInputs`
}

void JackDevices::removeInput(std::size_t index)
{
    ports.inputs()[index]->open.store(false);
    ports.inputs()[index]->couldNotOpen = false;
    unregister(callbacks.inputs[index]);
}

void JackDevices::addOutput(std::size_t index)
{
    OutputPort& port = *ports.outputs()[index];
    if (index == SYNTHESIZER) {
        port.couldNotOpen = !isSynthesizerThere();
        if (port.enabled) openOutput(index);
        return;
    }
    jack_port_t* own = registerMidi(port, TO_DEVICE, JackPortIsOutput);
    port.couldNotOpen = own == nullptr;
    if (own == nullptr) return;
    connections.forget(connectionOf(port, own));
    newOutputs.emplace_back(index, own);
}

/// Notes that sounded at the device when it was unplugged are ended before anything else is sent, so the connection has
/// to be made first, which takes the server some callbacks.
void JackDevices::openNewOutputs()
{
    for (const auto& [index, own] : newOutputs)
        if (OutputPort& port = *ports.outputs()[index]; port.enabled)
            port.couldNotOpen = connectToDevice(port, connectionOf(port, own)) != 0;
    if (!newOutputs.empty()) callbacks.waitFor(JackCallbacks::UNTIL_CONNECTED);
    for (const auto& [index, own] : newOutputs) {
        OutputPort& port = *ports.outputs()[index];
        callbacks.outputs[index].store(own);
        if (port.enabled && !port.couldNotOpen && callbacks.waitUntilClosed(index, index + 1)) port.open();
    }
    newOutputs.clear();
}

void JackDevices::removeOutput(std::size_t index)
{
    OutputPort& port = *ports.outputs()[index];
    port.close();
    port.couldNotOpen = false;
    unregister(callbacks.outputs[index]);
    port.unplug();
}

// The name contains the direction: an input and an output device may share a name, two ports of a client may not.
jack_port_t* JackDevices::registerMidi(const Port& port, const char* prefix, JackPortFlags direction)
{
    const auto room = static_cast<std::size_t>(jack_port_name_size() - jack_client_name_size() - 1);
    const std::string own = ((belongsToADevice(port) ? prefix : "") + port.name).substr(0, room);
    return jack_port_register(client, own.c_str(), JACK_DEFAULT_MIDI_TYPE, direction, 0);
}

void JackDevices::unregister(std::atomic<jack_port_t*>& own)
{
    jack_port_t* port = own.exchange(nullptr);
    // The current period may still use it.
    if (port != nullptr && callbacks.waitFor(JackCallbacks::UNTIL_READ)) jack_port_unregister(client, port);
}

JackConnection JackDevices::connectionOf(const InputPort& port, jack_port_t* own) const
{
    return {port.device.address, shortNameOf(own)};
}

JackConnection JackDevices::connectionOf(const OutputPort& port, jack_port_t* own) const
{
    return {shortNameOf(own), port.device.address};
}

int JackDevices::connectToDevice(const Port& port, const JackConnection& connection)
{
    return belongsToADevice(port) ? connections.connect(client, connection) : 0;
}

void JackDevices::openInput(std::size_t index)
{
    InputPort& port = *ports.inputs()[index];
    port.couldNotOpen =
        !isConnectedToFreeInput(port) && connectToDevice(port, connectionOf(port, callbacks.inputs[index])) != 0;
    port.open.store(true);
}

void JackDevices::openOutput(std::size_t index)
{
    OutputPort& port = *ports.outputs()[index];
    if (index != SYNTHESIZER)
        port.couldNotOpen = connectToDevice(port, connectionOf(port, callbacks.outputs[index])) != 0;
    if (!port.couldNotOpen && callbacks.waitUntilClosed(index, index + 1)) port.open();
}

void JackDevices::enableInput(std::size_t index, bool enabled)
{
    InputPort& port = *ports.inputs()[index];
    port.enabled = enabled;
    jack_port_t* own = callbacks.inputs[index];
    if (own == nullptr || callbacks.serverLost.load()) return;
    if (enabled) {
        openInput(index);
        return;
    }
    port.open.store(false);
    if (belongsToADevice(port)) jack_disconnect(client, port.device.address.c_str(), jack_port_name(own));
}

void JackDevices::enableOutput(std::size_t index, bool enabled)
{
    OutputPort& port = *ports.outputs()[index];
    port.enabled = enabled;
    jack_port_t* own = callbacks.outputs[index];
    if (client == nullptr || callbacks.serverLost.load() ||
        (index == SYNTHESIZER ? !isSynthesizerThere() : own == nullptr))
        return;
    if (enabled) {
        openOutput(index);
        return;
    }
    port.close();
    if (own != nullptr && belongsToADevice(port)) outputsToDisconnect.insert(index);
    disconnectOutputs();
}

/// Once the receiver has read the note-offs. A server that is too busy for that, or refuses, is asked again at the next
/// refresh.
void JackDevices::disconnectOutputs()
{
    std::erase_if(outputsToDisconnect, [this](std::size_t index) {
        const OutputPort& port = *ports.outputs()[index];
        jack_port_t* own = callbacks.outputs[index];
        if (port.enabled || own == nullptr) return true;
        if (!callbacks.waitUntilClosed(index, index + 1) || !callbacks.waitFor(JackCallbacks::UNTIL_READ)) return false;
        const char* device = port.device.address.c_str();
        return jack_disconnect(client, jack_port_name(own), device) == 0 || jack_port_connected_to(own, device) == 0;
    });
}

void JackDevices::connect(const std::string& from, const std::string& to)
{
    if (client == nullptr) throw std::runtime_error("there is no JACK server");
    const auto withColon = [&](const std::string& port) {
        return port.find(':') != std::string::npos ? port : ":" + port;
    };
    const JackConnection connection{withColon(from), withColon(to)};
    for (const std::string& end : {connection.first, connection.second}) {
        const std::string port = JackConnections::isOwn(end) ? jack_get_client_name(client) + end : end;
        if (jack_port_by_name(client, port.c_str()) == nullptr)
            throw std::runtime_error("there is no port \"" + port + "\"");
    }
    if (connections.connect(client, connection) != 0)
        throw std::runtime_error(
            "the JACK server refuses the connection (the first port must be an output, the second an input of the same "
            "type)");
}
}  // namespace Host
