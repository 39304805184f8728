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
/// The host in a JACK graph, PipeWire's included: one client with two MIDI ports to patch freely ("Orvane In", "Orvane
/// Out"), one more for each MIDI port of others as long as that is there, and the built-in synthesizer's two audio
/// ports. The process callback is the clock. A device that is wired to "Orvane In" is not heard a second time at the
/// port of its own. A server that dies takes the client along; when there is one again, a new client enters it, with
/// the wires that stood.
class JackSystem final : public MidiSystem
{
public:
    /// Enters the ports, activates the client and joins the ports to those they stand for.
    JackSystem(JackClient openClient, std::string wantedName, Ports& allPorts, Event& wakeEvent);
    ~JackSystem() override;

    std::string name() const override { return "JACK"; }
    std::string description() const override;
    std::string status() const override;
    RealTimeAnswer clockPriority() const override;
    void listen(Listener listener) override;
    void stopListening() override;
    void startClock(Clock& clock) override;
    bool followTransport() override;
    void deliver() override {}
    bool refresh() override;
    void enableInput(std::size_t index, bool enabled) override;
    void enableOutput(std::size_t index, bool enabled) override;
    void connect(const std::string& from, const std::string& to) override;
    void close() override;

private:
    void makeSynthesizer(double sampleRate);
    bool enter(JackClient newClient);
    void enterSynthesizer();
    bool isSynthesizerThere() const { return periods.synthesizer.load() != nullptr; }
    void closeDeadClient();
    void leaveDeadGraph();
    bool enterNewGraph();
    bool hasDied() const { return periods.died.load(); }

    const std::string clientName;
    Ports& ports;
    InputReader reader;
    std::unique_ptr<JackSynthesizer> synthesizer;  // null if it cannot sound
    JackPeriods periods;
    JackDevices devices;
    JackClient client;  // null while there is no server; closed before anything above goes
};
}  // namespace Host
