#pragma once

#include <array>
#include <atomic>
#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "host/jack/JackClient.h"
#include "host/jack/JackPorts.h"
#include "host/jack/JackWiring.h"
#include "host/ports/InputReader.h"
#include "host/system/MidiSystem.h"

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
    // The server
    void makeSynthesizer(double sampleRate);
    bool enter(JackClient newClient);
    void enterSynthesizer();
    void closeDeadClient();
    void leaveDeadGraph();
    bool enterNewGraph();
    bool hasDied() const { return died.load(); }

    // Devices
    enum class Newcomers { atOnce, whenSettled };
    bool followDevices(Newcomers newcomersPlay);
    bool followXruns();
    void followNewListeners();
    void followWires(bool portsChanged);
    void addInput(std::size_t index);
    void removeInput(std::size_t index);
    void addOutput(std::size_t index);
    void removeOutput(std::size_t index);
    void openInput(std::size_t index);
    void openOutput(std::size_t index);
    void openNewOutputs();
    void joinInputs();
    void noteCutInput(const Wire& wire, bool becauseOfPorts);
    OutputPort* findOutput(const Wire& wire) const;
    void tellLoop(const Wire& wire);
    bool isWiredByHand(const InputPort& port) const;
    std::vector<MidiDevice> settled(std::vector<MidiDevice> found);
    jack_port_t* registerMidi(const Port& port, const char* prefix, JackPortFlags direction);
    void unregister(std::atomic<jack_port_t*>& own);
    Wire wireOf(const InputPort& port, jack_port_t* own) const;
    Wire wireOf(const OutputPort& port, jack_port_t* own) const;
    int join(const Port& port, const Wire& wire);

    bool waitFor(const std::function<bool()>& condition) const;
    bool waitForPeriods(std::uint64_t count) const;
    bool waitUntilSilent(std::size_t firstOutput, std::size_t endOutput) const;

    static int process(jack_nframes_t frames, void* self);
    static void shutDown(jack_status_t code, const char* reason, void* self);
    static int noteRate(jack_nframes_t rate, void* self);
    void tellOfChange(std::atomic<bool>& change);
    void setCallbacks(jack_client_t* newClient);
    void takePriority();
    void playPeriod(jack_nframes_t frames);
    void play(Clock& songClock, jack_nframes_t frames);

    const std::string clientName;
    Ports& ports;
    Event& wake;
    InputReader reader;

    // Our port for each port of the lists, null for none. The control thread writes, the process callback reads.
    std::array<std::atomic<jack_port_t*>, Ports::MOST> ownInputs{};
    std::array<std::atomic<jack_port_t*>, Ports::MOST> ownOutputs{};  // without the synthesizer, output 0

    std::unique_ptr<JackSynthesizer> synthesizer;  // null if it cannot sound
    std::atomic<bool> synthesizerEntered{false};

    std::atomic<Clock*> clock{nullptr};
    std::atomic<bool> followsTransport{false};
    std::atomic<bool> listening{false};
    std::atomic<bool> died{false};
    std::atomic<bool> portsChanged{false};
    std::atomic<bool> wiresChanged{false};
    std::atomic<jack_nframes_t> rate{0};
    std::atomic<std::uint64_t> periods{0};
    std::atomic<std::uint64_t> xruns{0};
    std::atomic<bool> newThread{false};
    std::atomic<int> graphPriority{0};  // of the process callback's thread

    // The control thread's
    JackWiring wiring;
    std::uint64_t xrunsSeen = 0;
    using Time = std::chrono::steady_clock::time_point;
    std::optional<Time> listensFrom;        // whoever was wired to an output just now
    std::map<std::string, Time> newcomers;  // addresses that were not there before, and since when they are
    std::vector<std::pair<std::size_t, jack_port_t*>> newOutputs;
    std::array<std::optional<Time>, Ports::MOST> joinFrom;  // inputs to be joined then, unless they are wired by hand

    // The process callback's
    std::uint32_t periodStart = 0;
    jack_nframes_t playedRate = 0;
    jack_client_t* playedClient = nullptr;  // also while that is being closed

    JackClient client;  // null while there is no server; closed before anything above goes
};
}  // namespace Host
