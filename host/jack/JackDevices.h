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
/// The MIDI ports of others in a JACK graph: each gets a port of our client as long as it is there, is joined to it,
/// and is followed when it comes and goes, with the wires that others draw. What a far end may not have heard is ended
/// there once more. The control thread's; while the server stands still nothing is asked of it.
class JackDevices
{
public:
    /// What there is to tell goes to `newsToTell` and `inputsToRelease`: those that lost a wire.
    JackDevices(Ports& allPorts, JackPeriods& jackPeriods, std::vector<std::string>& newsToTell,
                std::set<std::size_t>& inputsToRelease)
        : ports(allPorts), periods(jackPeriods), news(newsToTell), cutInputs(inputsToRelease)
    {
    }

    /// The client is active; its periods go by.
    void enter(jack_client_t* newClient);

    /// Nothing more goes in or out.
    void close();

    /// The client is gone. What sounded at the far ends stays in the ledgers, and is released when they are back.
    void lose();

    /// Takes notice of what changed; true if a list is another one now.
    bool refresh();

    /// What ended in a period that somebody missed is ended once more; false if there was none since the last call.
    bool followXruns();

    /// Joins the inputs that are not heard at "Orvane In" already.
    void joinInputs();

    void enableInput(std::size_t index, bool enabled);
    void enableOutput(std::size_t index, bool enabled);

    /// Throws std::runtime_error with the reason if that is refused.
    void connect(const std::string& from, const std::string& to);

    /// Whether a wire stood at that port of ours, by its name with a colon before it, when it was last looked at.
    bool isWired(const std::string& own) const { return wiring.isWired(own); }

private:
    enum class Newcomers { atOnce, whenSettled };

    bool follow(Newcomers newcomersPlay);
    std::vector<MidiDevice> settled(std::vector<MidiDevice> found);
    void addInput(std::size_t index);
    void removeInput(std::size_t index);
    void addOutput(std::size_t index);
    void removeOutput(std::size_t index);
    void openInput(std::size_t index);
    void openOutput(std::size_t index);
    void openNewOutputs();
    bool isSynthesizerThere() const { return periods.synthesizer.load() != nullptr; }

    void followNewListeners();
    void followWires(bool becauseOfPorts);
    void noteCutInput(const Wire& wire, bool becauseOfPorts);
    OutputPort* findOutput(const Wire& wire) const;
    void tellLoop(const Wire& wire);
    bool isWiredByHand(const InputPort& port) const;
    Wire wireOf(const InputPort& port, jack_port_t* own) const;
    Wire wireOf(const OutputPort& port, jack_port_t* own) const;
    int join(const Port& port, const Wire& wire);
    jack_port_t* registerMidi(const Port& port, const char* prefix, JackPortFlags direction);
    void unregister(std::atomic<jack_port_t*>& own);

    using Time = std::chrono::steady_clock::time_point;

    Ports& ports;
    JackPeriods& periods;
    std::vector<std::string>& news;
    std::set<std::size_t>& cutInputs;
    jack_client_t* client = nullptr;  // null while there is no server

    JackWiring wiring;
    std::uint64_t xrunsSeen = 0;
    std::optional<Time> listensFrom;        // whoever was wired to an output just now
    std::map<std::string, Time> newcomers;  // addresses that were not there before, and since when they are
    std::vector<std::pair<std::size_t, jack_port_t*>> newOutputs;
    std::array<std::optional<Time>, Ports::MOST> joinFrom;  // inputs to be joined then, unless they are wired by hand
};
}  // namespace Host
