#include "host/jack/JackSystem.h"

#include <chrono>
#include <cmath>
#include <stdexcept>
#include <thread>
#include <utility>

#include "host/synthesizer/SoundFont.h"

namespace Host
{
using namespace std::chrono_literals;

namespace
{
constexpr std::size_t SYNTHESIZER = 0;
constexpr int MOST_XRUNS_AT_END = 5;
constexpr long LOAD_STEP = 5;  // percent; the line is not painted anew for less
constexpr auto UNTIL_READER_STOPPED = 200ms;
}  // namespace

JackSystem::JackSystem(JackClient openClient, std::string wantedName, Ports& allPorts, Event& wakeEvent,
                       const Sound& first)
    : clientName(std::move(wantedName)),
      ports(allPorts),
      reader(allPorts),
      sound(first),
      callbacks(allPorts, reader, wakeEvent),
      devices(allPorts, callbacks, news, disconnectedInputs)
{
    addSynthesizer(jack_get_sample_rate(openClient.get()));
    if (!enterGraph(std::move(openClient)))
        news.push_back("The JACK server does not run the client.");
    else if (sound.connects && isSynthesizerThere() && !synthesizer->connectToSoundCard(client.get()))
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
    if (hangs) return "JACK server hangs";
    return "JACK " + std::to_string(jack_get_sample_rate(client.get())) + " Hz, " +
           std::to_string(jack_get_buffer_size(client.get())) + " frames, load " +
           std::to_string(LOAD_STEP * std::lround(jack_cpu_load(client.get()) / LOAD_STEP)) + " %, " +
           std::to_string(callbacks.getXruns()) + " xruns";
}

std::string JackSystem::trouble() const
{
    if (!client) return "the JACK server is gone";
    return hangs ? "the JACK server hangs" : "";
}

RealTimeAnswer JackSystem::clockPriority() const
{
    if (!client) return MidiSystem::clockPriority();
    return callbacks.getPriority() > 0 ? RealTimeAnswer::granted : RealTimeAnswer::refused;
}

void JackSystem::startClock(Clock& songClock)
{
    if (!client || isServerLost()) {
        songClock.startOnThread();
        callbacks.clock.store(&songClock);
        return;
    }
    songClock.startInGraph(jack_get_sample_rate(client.get()));
    callbacks.clock.store(&songClock);
    if (isServerLost()) songClock.graphLost();
}

bool JackSystem::followTransport(bool on)
{
    callbacks.followsTransport.store(on);
    return true;
}

/// The rate of a new client is set when it enters the graph.
void JackSystem::setSound(const Sound& newSound)
{
    const bool isOtherFont = newSound.soundFont != sound.soundFont;
    sound = newSound;
    if (!synthesizer) return;
    synthesizer->setSound(sound);
    if (!isOtherFont) return;
    auto next = makeNextSynthesizer(sound, callbacks.getRate(), SynthesizerUse::oneThread, news);
    if (next) synthesizer->replace(std::move(next));
}

void JackSystem::listen(InputReceiver& receiver)
{
    reader.start(receiver);
    callbacks.receiver.store(&receiver);
    if (client && !isServerLost()) devices.connectInputs();
}

void JackSystem::stopListening()
{
    callbacks.receiver.store(nullptr);
    reader.stop();
}

// --- the server

void JackSystem::addSynthesizer(double sampleRate)
{
    if (ports.outputs().size() == 0) ports.addOutput(SYNTHESIZER_NAME);
    OutputPort& port = *ports.outputs()[SYNTHESIZER];
    try {
        synthesizer = std::make_unique<JackSynthesizer>(
            makeSynthesizer(sound, sampleRate, SynthesizerUse::oneThread, news), port);
        synthesizer->setSound(sound);
    } catch (const std::runtime_error& reason) {
        port.couldNotOpen = true;
        news.push_back("The built-in synthesizer is silent: " + std::string(reason.what()) + ".");
    }
}

bool JackSystem::enterGraph(JackClient newClient)
{
    callbacks.serverLost.store(false);
    client = std::move(newClient);
    callbacks.registerAt(client.get());
    enterSynthesizer();
    // The server of a busy machine sometimes accepts a client and never runs it: the next attempt may succeed.
    if (jack_activate(client.get()) != 0 || !callbacks.waitFor(1)) {
        callbacks.serverLost.store(true);
        leaveLostGraph();
        return false;
    }
    devices.enterGraph(client.get());
    noteClockPriority(callbacks.getPriority());
    return true;
}

void JackSystem::enterSynthesizer()
{
    if (!synthesizer) return;
    try {
        synthesizer->setRate(jack_get_sample_rate(client.get()));
        synthesizer->enter(client.get());
        callbacks.synthesizer.store(synthesizer.get());
    } catch (const std::runtime_error& reason) {
        news.push_back("The built-in synthesizer is silent: " + std::string(reason.what()) + ".");
    }
}

/// JACK's library cancels its thread when a client is closed. If that thread is still processing the server's last
/// messages and holds a lock of the library, no client of this process can be opened any more.
void JackSystem::closeLostClient()
{
    std::this_thread::sleep_for(UNTIL_READER_STOPPED);
    client.reset();
}

void JackSystem::leaveLostGraph()
{
    devices.close();
    closeLostClient();  // ends the process callback
    callbacks.synthesizer.store(nullptr);
    devices.leaveGraph();
}

bool JackSystem::enterNewGraph()
{
    auto newClient = openJackClient(clientName);
    std::string left(":");
    left += JackSynthesizer::LEFT;
    const bool wasConnected = devices.isConnected(left);
    if (!newClient || !enterGraph(std::move(newClient))) return false;
    if (wasConnected && isSynthesizerThere() && !synthesizer->isConnected())
        synthesizer->connectToSoundCard(client.get());
    if (Clock* songClock = callbacks.clock.load()) {
        songClock->returnToGraph(callbacks.getRate());
        if (isServerLost()) songClock->graphLost();
    }
    news.push_back("The JACK server is back: " + description() + ".");
    return true;
}

void JackSystem::waitUntilRead()
{
    if (client.get() != nullptr) callbacks.waitFor(JackCallbacks::UNTIL_READ);
}

bool JackSystem::refresh()
{
    if (synthesizer) synthesizer->discardReplaced();
    if (!client) return enterNewGraph();
    if (isServerLost()) {
        leaveLostGraph();
        hangs = false;
        news.push_back(
            "The JACK server is gone: no MIDI and no sound until there is one again. The engine continues with its own "
            "clock.");
        return true;
    }
    return !updateHang() && devices.refresh();
}

/// True while the server hangs: calls of it would not return.
bool JackSystem::updateHang()
{
    const Clock* const songClock = callbacks.clock.load();
    const bool hangsNow = songClock != nullptr && songClock->graphHangs();
    if (hangsNow != std::exchange(hangs, hangsNow))
        news.push_back(hangsNow
                           ? "The JACK server hangs: no MIDI and no sound until it runs again. The engine continues "
                             "with its own clock."
                           : "The JACK server runs again.");
    return hangsNow;
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
        port->receiverConnected();
        port->receiverReady();
        port->close();
    }
    if (!client) return;
    // Closing the client of a server that hangs would never return.
    devices.processXruns();
    bool serverRuns =
        callbacks.waitUntilClosed(0, ports.outputs().size()) && callbacks.waitFor(JackCallbacks::UNTIL_READ);
    for (int xruns = 0; xruns < MOST_XRUNS_AT_END && serverRuns && devices.processXruns(); ++xruns)
        serverRuns = callbacks.waitFor(JackCallbacks::UNTIL_READ);
    if (isServerLost())
        closeLostClient();
    else if (serverRuns)
        client.reset();
    else
        static_cast<void>(client.release());
}
}  // namespace Host
