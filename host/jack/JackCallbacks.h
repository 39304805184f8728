#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <functional>

#include <jack/jack.h>

#include "host/clock/Clock.h"
#include "host/jack/JackSynthesizer.h"
#include "host/ports/InputReader.h"
#include "host/ports/Ports.h"

namespace Host
{
/// What the threads of a JACK server call: each period takes what arrived, plays the slices and writes what they
/// played; that ports or wires changed and that the server died is noted, and wakes the control thread. It outlives the
/// clients. The control thread calls the operations.
class JackPeriods
{
public:
    // What a port wrote in one period has certainly been read by everyone when the second one behind it is over.
    static constexpr std::uint64_t TO_BE_HEARD = 2;
    static constexpr std::uint64_t TO_BE_JOINED = 3;

    JackPeriods(Ports& allPorts, InputReader& inputReader, Event& wakeEvent)
        : ports(allPorts), reader(inputReader), wake(wakeEvent)
    {
    }

    /// The periods are that client's from its activation on. No other is active.
    void serve(jack_client_t* client);

    // Our port for each port of the lists, null for none: written by the control thread, read by the periods.
    std::array<std::atomic<jack_port_t*>, Ports::MOST> inputs{};
    std::array<std::atomic<jack_port_t*>, Ports::MOST> outputs{};  ///< without the synthesizer's, output 0

    std::atomic<JackSynthesizer*> synthesizer{nullptr};  ///< null while it is in no graph
    std::atomic<Clock*> clock{nullptr};
    std::atomic<bool> followsTransport{false};
    std::atomic<bool> listens{false};

    // What the server said. The control thread takes the changes back.
    std::atomic<bool> died{false};
    std::atomic<bool> portsChanged{false};
    std::atomic<bool> wiresChanged{false};

    jack_nframes_t getRate() const { return rate.load(); }
    std::uint64_t getXruns() const { return xruns.load(); }

    /// Of the thread that plays the periods; 0 for none of real time.
    int getPriority() const { return priority.load(); }

    /// False if the server is dead or stands still: what it is asked then may never be answered.
    bool waitFor(std::uint64_t count) const;

    /// False as above. Outputs that have no device are left out.
    bool waitUntilSilent(std::size_t first, std::size_t end) const;

private:
    bool waitUntil(const std::function<bool()>& condition) const;
    bool isClosing(std::size_t output) const;

    static int process(jack_nframes_t frames, void* object);
    static int noteRate(jack_nframes_t rate, void* object);
    static void shutDown(jack_status_t code, const char* reason, void* object);
    void tellOfChange(std::atomic<bool>& change);

    void playPeriod(jack_nframes_t frames);
    void takeWhatArrived(jack_nframes_t frames);
    void heedRate();
    void takePriority();
    void play(Clock& songClock, jack_nframes_t frames);

    Ports& ports;
    InputReader& reader;
    Event& wake;

    std::atomic<jack_nframes_t> rate{0};
    std::atomic<std::uint64_t> periods{0};
    std::atomic<std::uint64_t> xruns{0};
    std::atomic<bool> newThread{false};
    std::atomic<int> priority{0};

    // The process callback's
    std::uint32_t periodStart = 0;
    jack_nframes_t playedRate = 0;
    jack_client_t* playedClient = nullptr;  // also while that is being closed
};
}  // namespace Host
