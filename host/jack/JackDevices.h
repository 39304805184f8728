#pragma once

#include <array>
#include <chrono>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "host/jack/JackCallbacks.h"
#include "host/jack/JackConnections.h"
#include "host/ports/Ports.h"

namespace Host
{
/// The MIDI ports of other clients in a JACK graph. Each of them gets a port of our client, connected to it, for as
/// long as it is registered; connections that others make are observed. Note-offs that a receiver may have missed are
/// sent to it again. Control thread; while the server plays no periods, none of its functions is called.
class JackDevices
{
public:
    /// Messages for the user are added to `newsOfSystem`, and inputs that lose a connection to `disconnected`.
    JackDevices(Ports& allPorts, JackCallbacks& jackCallbacks, std::vector<std::string>& newsOfSystem,
                std::set<std::size_t>& disconnected)
        : ports(allPorts), callbacks(jackCallbacks), news(newsOfSystem), disconnectedInputs(disconnected)
    {
    }

    /// Adds the devices of the graph. The client is active, and periods are being played.
    void enterGraph(jack_client_t* newClient);

    /// Closes all ports.
    void close();

    /// The client is gone. Notes that sounded at a device are ended when the device is back.
    void leaveGraph();

    /// Updates ports and connections; true if a list of ports has changed.
    bool refresh();

    /// Sends recent note-offs again if there was an xrun since the last call; false if not.
    bool processXruns();

    /// Connects the inputs whose device is not connected to "Orvane In".
    void connectInputs();

    void enableInput(std::size_t index, bool enabled);
    void enableOutput(std::size_t index, bool enabled);

    /// Connects two ports by name. Throws std::runtime_error with the reason if that fails.
    void connect(const std::string& from, const std::string& to);

    /// A port of our client, by its name with a colon before it, had a connection at the last update, or has a lost
    /// one.
    bool isConnected(const std::string& own) const { return connections.hasAny(own); }

private:
    enum class NewDevices { atOnce, delayed };

    bool updateDevices(NewDevices newDevices);
    std::vector<MidiDevice> withoutNew(std::vector<MidiDevice> found);
    void addInput(std::size_t index);
    void removeInput(std::size_t index);
    void addOutput(std::size_t index);
    void removeOutput(std::size_t index);
    void openInput(std::size_t index);
    void openOutput(std::size_t index);
    void openNewOutputs();
    void disconnectOutputs();
    bool isSynthesizerThere() const { return callbacks.synthesizer.load() != nullptr; }

    void updateNewReceivers();
    void updateConnections(bool portsChanged);
    void processDisconnection(const JackConnection& connection, bool portsChanged);
    OutputPort* findOutput(const JackConnection& connection) const;
    void reportLoop(const JackConnection& connection);
    bool isConnectedToFreeInput(const InputPort& port) const;
    JackConnection connectionOf(const InputPort& port, jack_port_t* own) const;
    JackConnection connectionOf(const OutputPort& port, jack_port_t* own) const;
    int connectToDevice(const Port& port, const JackConnection& connection);
    jack_port_t* registerMidi(const Port& port, const char* prefix, JackPortFlags direction);
    void unregister(std::atomic<jack_port_t*>& own);

    using Time = std::chrono::steady_clock::time_point;

    Ports& ports;
    JackCallbacks& callbacks;
    std::vector<std::string>& news;
    std::set<std::size_t>& disconnectedInputs;
    jack_client_t* client = nullptr;  // null while there is no server

    JackConnections connections;
    std::uint64_t xrunsSeen = 0;
    std::optional<Time> receiversReadyAt;    // a receiver that was connected since the last cycle is ready then
    std::map<std::string, Time> newDevices;  // when each new address was first found
    std::vector<std::pair<std::size_t, jack_port_t*>> newOutputs;
    std::set<std::size_t> outputsToDisconnect;  // disabled, still connected to their devices
    std::array<std::optional<Time>, Ports::MOST>
        connectAt;  // when to connect each input, unless its device is connected to "Orvane In"
};
}  // namespace Host
