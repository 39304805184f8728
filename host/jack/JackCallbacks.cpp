#include "host/jack/JackCallbacks.h"

#include <chrono>
#include <thread>
#include <utility>

#include "host/jack/JackPorts.h"
#include "host/jack/JackTransport.h"
#include "platform/Thread.h"

namespace Host
{
using namespace std::chrono_literals;

namespace
{
constexpr auto LONGEST_WAIT = 2s;
}

bool JackCallbacks::waitUntil(const std::function<bool()>& condition) const
{
    const auto giveUp = std::chrono::steady_clock::now() + LONGEST_WAIT;
    while (!condition()) {
        if (serverLost.load() || std::chrono::steady_clock::now() > giveUp) return false;
        std::this_thread::sleep_for(1ms);
    }
    return true;
}

bool JackCallbacks::waitFor(std::uint64_t count) const
{
    const std::uint64_t enough = periods.load() + count;
    return waitUntil([&] { return periods.load() >= enough; });
}

bool JackCallbacks::waitUntilClosed(std::size_t first, std::size_t end) const
{
    return waitUntil([&] {
        for (std::size_t index = first; index < end; ++index)
            if (isClosing(index)) return false;
        return true;
    });
}

bool JackCallbacks::isClosing(std::size_t output) const
{
    const bool isDelivered = output == 0 ? synthesizer.load() != nullptr : outputs[output] != nullptr;
    return isDelivered && ports.outputs()[output]->isClosing();
}

// --- called by the server's threads

void JackCallbacks::registerAt(jack_client_t* client)
{
    playedClient = client;
    rate.store(playedRate = jack_get_sample_rate(client));
    jack_set_process_callback(client, process, this);
    jack_set_thread_init_callback(
        client, [](void* object) { static_cast<JackCallbacks*>(object)->isNewThread.store(true); }, this);
    // One is enough for JACK's own library; older versions of PipeWire's call only the first.
    jack_on_shutdown(
        client, [](void* object) { shutDown(JackFailure, "", object); }, this);
    jack_on_info_shutdown(client, shutDown, this);
    jack_set_sample_rate_callback(client, setRate, this);
    jack_set_xrun_callback(
        client,
        [](void* object) {
            static_cast<JackCallbacks*>(object)->xruns.fetch_add(1);
            return 0;
        },
        this);
    jack_set_port_registration_callback(
        client,
        [](jack_port_id_t, int, void* object) {
            auto& self = *static_cast<JackCallbacks*>(object);
            self.notify(self.portsChanged);
        },
        this);
    // The ports of a client that closes are unregistered when it is not active any more, and the server reports only
    // the client.
    jack_set_client_registration_callback(
        client,
        [](const char*, int, void* object) {
            auto& self = *static_cast<JackCallbacks*>(object);
            self.notify(self.portsChanged);
        },
        this);
    jack_set_port_connect_callback(
        client,
        [](jack_port_id_t, jack_port_id_t, int, void* object) {
            auto& self = *static_cast<JackCallbacks*>(object);
            self.notify(self.connectionsChanged);
        },
        this);
}

// No function of the server may be called from here.
void JackCallbacks::notify(std::atomic<bool>& change)
{
    change.store(true);
    wake.set();
}

int JackCallbacks::setRate(jack_nframes_t newRate, void* object)
{
    static_cast<JackCallbacks*>(object)->rate.store(newRate);
    return 0;
}

int JackCallbacks::process(jack_nframes_t frames, void* object)
{
    static_cast<JackCallbacks*>(object)->playPeriod(frames);
    return 0;
}

void JackCallbacks::playPeriod(jack_nframes_t frames)
{
    const std::size_t count = ports.outputs().size();  // a port added during the slices is delivered in the next period
    if (isNewThread.exchange(false)) updatePriority();
    updateRate();
    Clock* const songClock = clock.load();
    InputReceiver* const listener = receiver.load();
    if (listener != nullptr) arrivals.begin(*listener, songClock, periodStart, frames);
    if (songClock != nullptr) play(*songClock, listener != nullptr ? &arrivals : nullptr, frames);
    if (listener != nullptr && arrivals.end()) reader.wake();
    const bool delivers = songClock == nullptr || !songClock->isResuming();
    for (std::size_t index = 1; index < count; ++index) {
        jack_port_t* const own = outputs[index];
        if (own != nullptr && delivers)
            deliver(*ports.outputs()[index], own, periodStart, frames);
        else if (own != nullptr)
            deliverNothing(own, frames);
    }
    if (auto* const sound = synthesizer.load()) sound->render(periodStart, frames);
    periodStart += frames;
    periods.fetch_add(1);
}

void JackCallbacks::updateRate()
{
    const jack_nframes_t newRate = rate.load();
    if (newRate == std::exchange(playedRate, newRate)) return;
    if (Clock* const songClock = clock.load()) songClock->setGraphRate(newRate);
    if (auto* const sound = synthesizer.load()) sound->setRate(newRate);
}

void JackCallbacks::play(Clock& songClock, PeriodInputs* arrived, jack_nframes_t frames)
{
    if (followsTransport.load()) {
        const Transport transport = findTransport(playedClient);
        songClock.playPeriod(periodStart, frames, &transport, arrived);
    } else {
        songClock.playPeriod(periodStart, frames, nullptr, arrived);
    }
}

// A server without real-time priority gives its clients none; the system may.
void JackCallbacks::updatePriority()
{
    if (realTimePriority() == 0) requestRealTimePriority(RealTimeStep::clock);
    priority.store(realTimePriority());
}

void JackCallbacks::shutDown(jack_status_t, const char*, void* object)
{
    auto& self = *static_cast<JackCallbacks*>(object);
    self.serverLost.store(true);
    if (Clock* songClock = self.clock.load()) songClock->graphLost();
    self.wake.set();
}
}  // namespace Host
