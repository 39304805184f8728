#pragma once

#include <functional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "backend/values/OrvMidiMessage.h"
#include "host/clock/Clock.h"
#include "host/ports/Ports.h"
#include "platform/Thread.h"

namespace Host
{
/// The world outside: the devices behind the ports, and the clock that they may bring along. Made with its devices
/// open and its ports entered; later it follows what comes and goes. All operations are the control thread's, but for
/// `deliver`.
class MidiSystem
{
public:
    using Listener = std::function<void(const Backend::MidiEngine::OrvMidiMessage&)>;

    virtual ~MidiSystem() = default;

    /// "JACK", "ALSA" or "none".
    virtual std::string name() const = 0;

    /// How it stands, for the user: "JACK, client \"orvane\", 48000 Hz, 256 frames".
    virtual std::string description() const = 0;

    /// The same in a few words, with what happened to it: "JACK 48000 Hz, 256 frames, 3 xruns".
    virtual std::string status() const { return name(); }

    /// What the thread got that is the clock.
    virtual RealTimeAnswer clockPriority() const { return realTimeAnswer(RealTimeStep::clock); }

    /// The inputs that lost a wire since the last call, by number: keys that are down there stay down for ever.
    std::set<std::size_t> takeCutInputs() { return std::exchange(cutInputs, {}); }

    /// What there is to say since the last call, a sentence each.
    std::vector<std::string> takeNews() { return std::exchange(news, {}); }

    /// From now on what arrives at an open input goes to `listener`, on a thread of the system.
    virtual void listen(Listener listener) = 0;

    /// Nothing goes to the listener once this has returned.
    virtual void stopListening() = 0;

    virtual void startClock(Clock& clock) = 0;

    /// From now on the clock follows the system's transport. False if it has none.
    virtual bool followTransport() { return false; }

    /// Sends what was played; called by a clock outside a graph after each slice that played.
    virtual void deliver() = 0;

    /// Takes notice of devices that came and went and of a server that died or is back. True if a list is another one
    /// now. To be called several times a second, and whenever `wake` was set.
    virtual bool refresh() = 0;

    /// Carries the user's choice out, at once if the device is there. An output is closed with every note off.
    virtual void enableInput(std::size_t index, bool enabled) = 0;
    virtual void enableOutput(std::size_t index, bool enabled) = 0;

    /// Joins two ports of the graph by name. Throws std::runtime_error with the reason if that is refused.
    virtual void connect(const std::string& from, const std::string& to) = 0;

    /// Closes every output with every note off, then everything. The clock stands.
    virtual void close() = 0;

protected:
    std::vector<std::string> news;
    std::set<std::size_t> cutInputs;
};

/// The output of the built-in synthesizer, always number 0.
inline constexpr const char* SYNTHESIZER_NAME = "Orvane Synthesizer";
}  // namespace Host
