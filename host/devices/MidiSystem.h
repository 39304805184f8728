#pragma once

#include <set>
#include <string>
#include <utility>
#include <vector>

#include "host/clock/Clock.h"
#include "host/ports/InputReceiver.h"
#include "host/ports/Ports.h"
#include "platform/Thread.h"

namespace Host
{
struct Sound;

/// The MIDI system of the machine: the devices of the ports, and the audio graph that may drive the clock. The
/// constructor opens the devices and adds their ports; `refresh` follows devices that are plugged in and unplugged. All
/// operations but `deliver` belong to the control thread.
class MidiSystem
{
public:
    virtual ~MidiSystem() = default;

    /// "JACK", "ALSA" or "none".
    virtual std::string name() const = 0;

    /// The state, for the user: "JACK, client \"orvane\", 48000 Hz, 256 frames".
    virtual std::string description() const = 0;

    /// The same in a few words, with xruns: "JACK 48000 Hz, 256 frames, 3 xruns".
    virtual std::string status() const { return name(); }

    /// Why the built-in synthesizer is silent, or the devices are gone, as a clause; empty if nothing is wrong.
    virtual std::string trouble() const { return {}; }

    /// Whether the thread that plays the slices has real-time priority.
    virtual RealTimeAnswer clockPriority() const { return realTimeAnswer(RealTimeStep::clock); }

    /// The numbers of the inputs that lost a connection since the last call: no note-off will arrive for keys that were
    /// down there.
    std::set<std::size_t> takeDisconnectedInputs() { return std::exchange(disconnectedInputs, {}); }

    /// Messages for the user since the last call, one sentence each.
    std::vector<std::string> takeNews() { return std::exchange(news, {}); }

    /// Passes each event of an open input to `receiver`, on a thread of the system. The receiver must outlive this
    /// object.
    virtual void listen(InputReceiver& receiver) = 0;

    /// No event that arrives from now on is passed on, and none is posted after this has returned.
    virtual void stopListening() = 0;

    /// Starts the clock, in the process callback if there is a graph.
    virtual void startClock(Clock& clock) = 0;

    /// Whether the clock follows the transport of the graph from now on. False if there is none.
    virtual bool followTransport([[maybe_unused]] bool on) { return false; }

    /// The user has changed the sound of the built-in synthesizer. Loading a sound font takes up to some seconds, while
    /// it plays on; one that cannot be loaded changes nothing and is news.
    virtual void setSound([[maybe_unused]] const Sound& sound) {}

    /// Sends what was played. Called by the clock's own thread after each slice in which a message was played.
    virtual void deliver() = 0;

    /// Waits until the receivers have read what was sent, at most two seconds. Control thread.
    virtual void waitUntilRead() {}

    /// Updates the ports to devices that were plugged in or unplugged and to a server that was stopped or started. True
    /// if a list of ports has changed. To be called several times a second, and whenever `wake` is set.
    virtual bool refresh() = 0;

    /// Executes the user's choice, at once if the device is present. An output that is disabled sends a note-off for
    /// each note that sounds.
    virtual void enableInput(std::size_t index, bool enabled) = 0;
    virtual void enableOutput(std::size_t index, bool enabled) = 0;

    /// Connects two ports of the graph by name. Throws std::runtime_error with the reason if that fails.
    virtual void connect(const std::string& from, const std::string& to) = 0;

    /// Closes everything, the outputs with a note-off for each note that sounds. The clock has stopped.
    virtual void close() = 0;

protected:
    std::vector<std::string> news;
    std::set<std::size_t> disconnectedInputs;
};

/// The name of output 0, the built-in synthesizer.
inline constexpr const char* SYNTHESIZER_NAME = "Orvane Synthesizer";
}  // namespace Host
