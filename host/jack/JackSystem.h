#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "host/jack/JackClient.h"
#include "host/jack/JackPorts.h"
#include "host/ports/InputReader.h"
#include "host/system/MidiSystem.h"

namespace Host
{
/// The host in a JACK graph, PipeWire's included: one client with two MIDI ports to patch freely ("Orvane In", "Orvane
/// Out"), one more for each MIDI port of others that it found at the start, and the built-in synthesizer's two audio
/// ports. The process callback is the clock.
class JackSystem final : public MidiSystem
{
public:
    /// Enters the ports, activates the client and joins the ports to those they stand for.
    JackSystem(JackClient openClient, Ports& allPorts, Event& diedEvent);
    ~JackSystem() override;

    std::string name() const override { return "JACK"; }
    std::string description() const override;
    void listen(Listener listener) override;
    void stopListening() override;
    void startClock(Clock& clock) override;
    bool followTransport() override;
    void deliver() override {}
    void enableInput(std::size_t index, bool enabled) override;
    void enableOutput(std::size_t index, bool enabled) override;
    void connect(const std::string& from, const std::string& to) override;
    bool hasDied() const override { return died.load(); }
    void markGone() override;
    void close() override;

private:
    void addSynthesizer();
    void addInput(const ForeignPort& source);
    void addOutput(const ForeignPort& sink);
    jack_port_t* registerMidi(Port& port, const char* prefix, JackPortFlags direction);
    void activate();

    bool join(const JackMidiPort<InputPort>& input);
    bool join(const JackMidiPort<OutputPort>& output);
    std::string fullName(const std::string& name) const;
    bool waitFor(const std::function<bool()>& condition) const;
    bool waitUntilSilent() const;

    static int process(jack_nframes_t frames, void* self);
    static void shutDown(jack_status_t code, const char* reason, void* self);
    void playPeriod(jack_nframes_t frames);

    Ports& ports;
    Event& hostEvent;
    InputReader reader;

    // Complete before the client is activated
    std::vector<JackMidiPort<InputPort>> inputs;
    std::vector<JackMidiPort<OutputPort>> outputs;  // without the synthesizer: output 1 and up
    std::unique_ptr<JackSynthesizer> synthesizer;   // null if it cannot sound

    std::atomic<Clock*> clock{nullptr};
    std::atomic<bool> followsTransport{false};
    std::atomic<bool> listening{false};
    std::atomic<bool> died{false};
    std::atomic<std::uint64_t> periods{0};

    // The process callback's
    std::uint32_t periodStart = 0;

    JackClient client;  // closed before anything above goes
};
}  // namespace Host
