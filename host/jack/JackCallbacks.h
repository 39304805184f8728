#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <functional>

#include <jack/jack.h>

#include "host/clock/Clock.h"
#include "host/jack/JackInputs.h"
#include "host/jack/JackSynthesizer.h"
#include "host/ports/InputReader.h"
#include "host/ports/Ports.h"

namespace Host
{
/// The callbacks of the JACK client. The process callback takes the messages that arrived, plays the slices and writes
/// what they played. The other callbacks store that ports or connections have changed, or that the server was lost, and
/// notify the control thread, which calls the operations. This object outlives the clients.
class JackCallbacks
{
public:
    /// Periods until all receivers have read what a port wrote in a period.
    static constexpr std::uint64_t UNTIL_READ = 2;
    /// Periods until a new connection passes messages on.
    static constexpr std::uint64_t UNTIL_CONNECTED = 3;

    JackCallbacks(Ports& allPorts, InputReader& inputReader, Event& wakeEvent)
        : ports(allPorts), reader(inputReader), wake(wakeEvent)
    {
    }

    /// Registers the callbacks of a client before its activation. No other client is active.
    void registerAt(jack_client_t* client);

    // Our JACK port for each port of the lists, null for none. Written by the control thread, read by the process
    // callback.
    JackInputs::JackPorts inputs{};
    std::array<std::atomic<jack_port_t*>, Ports::MOST> outputs{};  ///< output 0, the synthesizer, has none

    std::atomic<JackSynthesizer*> synthesizer{nullptr};  ///< null while it has no ports
    std::atomic<Clock*> clock{nullptr};
    std::atomic<bool> followsTransport{false};
    std::atomic<InputReceiver*> receiver{nullptr};  ///< null while the inputs are not read

    // Set by the server's callbacks; the control thread resets the changes.
    std::atomic<bool> serverLost{false};
    std::atomic<bool> portsChanged{false};
    std::atomic<bool> connectionsChanged{false};

    jack_nframes_t getRate() const { return rate.load(); }
    std::uint64_t getXruns() const { return xruns.load(); }

    /// The real-time priority of the thread of the process callback, 0 for none.
    int getPriority() const { return priority.load(); }

    /// Waits for that many periods. False if the server was lost or plays none for two seconds: then no function of
    /// the server may be called, because it might never return.
    bool waitFor(std::uint64_t count) const;

    /// Waits until these outputs are closed, except for those without a JACK port. False as `waitFor`.
    bool waitUntilClosed(std::size_t first, std::size_t end) const;

private:
    bool waitUntil(const std::function<bool()>& condition) const;
    bool isClosing(std::size_t output) const;

    static int process(jack_nframes_t frames, void* object);
    static int setRate(jack_nframes_t rate, void* object);
    static void shutDown(jack_status_t code, const char* reason, void* object);
    void notify(std::atomic<bool>& change);

    void playPeriod(jack_nframes_t frames);
    void updateRate();
    void updatePriority();
    void play(Clock& songClock, PeriodInputs* arrived, jack_nframes_t frames);

    Ports& ports;
    InputReader& reader;
    Event& wake;

    std::atomic<jack_nframes_t> rate{0};
    std::atomic<std::uint64_t> periods{0};
    std::atomic<std::uint64_t> xruns{0};
    std::atomic<bool> isNewThread{false};
    std::atomic<int> priority{0};

    // Used by the process callback
    JackInputs arrivals{ports, inputs};
    std::uint32_t periodStart = 0;
    jack_nframes_t playedRate = 0;
    jack_client_t* playedClient = nullptr;  // still set while the client is being closed
};
}  // namespace Host
