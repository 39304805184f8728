#include "host/jack/JackSystem.h"

#include <chrono>
#include <stdexcept>
#include <thread>

namespace Host
{
using namespace std::chrono_literals;

namespace
{
constexpr std::size_t SYNTHESIZER = 0;
constexpr int TRIES_TO_BE_HEARD = 5;  // where each meets an xrun
constexpr auto UNTIL_ALL_IS_READ = 200ms;
}  // namespace

JackSystem::JackSystem(JackClient openClient, std::string wantedName, Ports& allPorts, Event& wakeEvent)
    : clientName(std::move(wantedName)),
      ports(allPorts),
      reader(allPorts),
      periods(allPorts, reader, wakeEvent),
      devices(allPorts, periods, news, cutInputs)
{
    makeSynthesizer(jack_get_sample_rate(openClient.get()));
    if (!enter(std::move(openClient)))
        news.push_back("The JACK server refuses to run the client.");
    else if (isSynthesizerThere() && !synthesizer->connectToSoundCard(client.get()))
        news.push_back("The JACK graph has no sound output; connect the synthesizer's ports by hand.");
}

JackSystem::~JackSystem() { close(); }

std::string JackSystem::description() const
{
    if (!client) return "JACK, no server";
    return "JACK, client \"" + std::string(jack_get_client_name(client.get())) + "\", " +
           std::to_string(jack_get_sample_rate(client.get())) + " Hz, " +
           std::to_string(jack_get_buffer_size(client.get())) + " frames";
}

std::string JackSystem::status() const
{
    if (!client) return "no JACK server";
    return "JACK " + std::to_string(jack_get_sample_rate(client.get())) + " Hz, " +
           std::to_string(jack_get_buffer_size(client.get())) + " frames, " + std::to_string(periods.getXruns()) +
           " xruns";
}

RealTimeAnswer JackSystem::clockPriority() const
{
    if (!client) return MidiSystem::clockPriority();
    return periods.getPriority() > 0 ? RealTimeAnswer::granted : RealTimeAnswer::refused;
}

void JackSystem::startClock(Clock& songClock)
{
    if (!client || hasDied()) {
        songClock.startOnThread();
        periods.clock.store(&songClock);
        return;
    }
    songClock.startInGraph(jack_get_sample_rate(client.get()));
    periods.clock.store(&songClock);
    if (hasDied()) songClock.graphDied();
}

bool JackSystem::followTransport()
{
    periods.followsTransport.store(true);
    return true;
}

void JackSystem::listen(Listener listener)
{
    reader.start(std::move(listener));
    periods.listens.store(true);
    if (client && !hasDied()) devices.joinInputs();
}

void JackSystem::stopListening()
{
    periods.listens.store(false);
    reader.stop();
}

// --- the server comes and goes

void JackSystem::makeSynthesizer(double sampleRate)
{
    if (ports.outputs().size() == 0) ports.addOutput(SYNTHESIZER_NAME);
    OutputPort& port = *ports.outputs()[SYNTHESIZER];
    try {
        synthesizer = std::make_unique<JackSynthesizer>(sampleRate, port);
    } catch (const std::runtime_error& reason) {
        port.couldNotOpen = true;
        news.push_back("The built-in synthesizer is silent: " + std::string(reason.what()) + ".");
    }
}

bool JackSystem::enter(JackClient newClient)
{
    periods.died.store(false);
    client = std::move(newClient);
    periods.serve(client.get());
    enterSynthesizer();
    // Now and then the server of a busy machine takes a client in and never wakes it: the next one may do better.
    if (jack_activate(client.get()) != 0 || !periods.waitFor(1)) {
        periods.died.store(true);
        leaveDeadGraph();
        return false;
    }
    devices.enter(client.get());
    noteClockPriority(periods.getPriority());
    return true;
}

void JackSystem::enterSynthesizer()
{
    if (!synthesizer) return;
    try {
        synthesizer->setRate(jack_get_sample_rate(client.get()));
        synthesizer->enter(client.get());
        periods.synthesizer.store(synthesizer.get());
    } catch (const std::runtime_error& reason) {
        news.push_back("The built-in synthesizer is silent: " + std::string(reason.what()) + ".");
    }
}

/// JACK's library ends its thread wherever that is. If that still reads what a dying server told and holds a lock of
/// the library, nobody enters a graph any more.
void JackSystem::closeDeadClient()
{
    std::this_thread::sleep_for(UNTIL_ALL_IS_READ);
    client.reset();
}

void JackSystem::leaveDeadGraph()
{
    devices.close();
    closeDeadClient();  // and with it the process callback
    periods.synthesizer.store(nullptr);
    devices.lose();
}

bool JackSystem::enterNewGraph()
{
    auto newClient = openJackClient(clientName);
    const bool sounded = devices.isWired(std::string(":") + JackSynthesizer::LEFT);
    if (!newClient || !enter(std::move(newClient))) return false;
    if (sounded && isSynthesizerThere() && !synthesizer->isConnected()) synthesizer->connectToSoundCard(client.get());
    if (Clock* songClock = periods.clock.load()) {
        songClock->returnToGraph(periods.getRate());
        if (hasDied()) songClock->graphDied();
    }
    news.push_back("The JACK server is back: " + description() + ".");
    return true;
}

bool JackSystem::refresh()
{
    if (!client) return enterNewGraph();
    if (hasDied()) {
        leaveDeadGraph();
        news.push_back(
            "The JACK server is gone: no MIDI and no sound until there is one again. The engine goes on by its own "
            "clock.");
        return true;
    }
    return devices.refresh();
}

// --- the user's choices

void JackSystem::enableInput(std::size_t index, bool enabled) { devices.enableInput(index, enabled); }

void JackSystem::enableOutput(std::size_t index, bool enabled) { devices.enableOutput(index, enabled); }

void JackSystem::connect(const std::string& from, const std::string& to) { devices.connect(from, to); }

// --- the end

void JackSystem::close()
{
    stopListening();
    for (const auto& port : ports.outputs()) {
        port->listenerIsBack();
        port->listenerListens();
        port->close();
    }
    if (!client) return;
    // Asked to close by a server that stands still we would wait for ever.
    devices.followXruns();
    bool goesOn = periods.waitUntilSilent(0, ports.outputs().size()) && periods.waitFor(JackPeriods::TO_BE_HEARD);
    for (int tries = 0; tries < TRIES_TO_BE_HEARD && goesOn && devices.followXruns(); ++tries)
        goesOn = periods.waitFor(JackPeriods::TO_BE_HEARD);
    if (hasDied())
        closeDeadClient();
    else if (goesOn)
        client.reset();
    else
        static_cast<void>(client.release());
}
}  // namespace Host
