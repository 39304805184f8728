#pragma once

#include <memory>
#include <string>

#include "host/devices/MidiSystem.h"
#include "host/jack/JackCallbacks.h"
#include "host/jack/JackClient.h"
#include "host/jack/JackDevices.h"
#include "host/jack/JackSynthesizer.h"
#include "host/ports/InputReader.h"

namespace Host
{
/// The host in a JACK graph, PipeWire's included: one client with two free MIDI ports that the user connects ("Orvane
/// In", "Orvane Out"), one more for each MIDI port of other clients while that is registered, and the built-in
/// synthesizer's two audio ports. The process callback drives the clock. While the server hangs, the clock's own thread
/// does. A device that is connected to "Orvane In" is not received a second time at the port of its own. If the server
/// stops, a new client enters the next server and restores the connections.
class JackSystem final : public MidiSystem
{
public:
    /// Adds the ports, activates the client and connects the ports to their devices.
    JackSystem(JackClient openClient, std::string wantedName, Ports& allPorts, Event& wakeEvent, const Sound& first);
    ~JackSystem() override;

    std::string name() const override { return "JACK"; }
    std::string description() const override;
    std::string status() const override;
    std::string trouble() const override;
    RealTimeAnswer clockPriority() const override;
    void listen(InputReceiver& receiver) override;
    void stopListening() override;
    void startClock(Clock& clock) override;
    bool followTransport(bool on) override;
    void setSound(const Sound& newSound) override;
    void deliver() override {}
    void waitUntilRead() override;
    bool refresh() override;
    void enableInput(std::size_t index, bool enabled) override;
    void enableOutput(std::size_t index, bool enabled) override;
    void connect(const std::string& from, const std::string& to) override;
    void close() override;

private:
    void addSynthesizer(double sampleRate);
    bool enterGraph(JackClient newClient);
    void enterSynthesizer();
    bool isSynthesizerThere() const { return callbacks.synthesizer.load() != nullptr; }
    void closeLostClient();
    void leaveLostGraph();
    bool enterNewGraph();
    bool updateHang();
    bool isServerLost() const { return callbacks.serverLost.load(); }

    const std::string clientName;
    Ports& ports;
    InputReader reader;
    Sound sound;
    std::unique_ptr<JackSynthesizer> synthesizer;  // null if it could not be made
    JackCallbacks callbacks;
    JackDevices devices;
    bool hangs = false;  // as reported
    JackClient client;   // null while there is no server; destroyed before the members above
};
}  // namespace Host
