#include "host/jack/JackSystem.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <stdexcept>
#include <thread>

#include "host/jack/JackTransport.h"

namespace Host
{
using namespace std::chrono_literals;

namespace
{
constexpr auto LONGEST_WAIT = 2s;

// What a port wrote in one period has certainly been read by everyone when the second one behind it is over.
constexpr std::uint64_t PERIODS_TO_BE_HEARD = 2;
}  // namespace

JackSystem::JackSystem(JackClient openClient, Ports& allPorts, Event& diedEvent)
    : ports(allPorts), hostEvent(diedEvent), reader(allPorts), client(std::move(openClient))
{
    // Looked for first: what is registered below is our own.
    const auto sources = findForeignMidiPorts(client.get(), JackPortIsOutput);
    const auto sinks = findForeignMidiPorts(client.get(), JackPortIsInput);
    addSynthesizer();
    addInput({"", "Orvane In"});
    addOutput({"", "Orvane Out"});
    for (const ForeignPort& source : sources) addInput(source);
    for (const ForeignPort& sink : sinks) addOutput(sink);
    activate();
}

JackSystem::~JackSystem() { close(); }

std::string JackSystem::description() const
{
    return "JACK, client \"" + std::string(jack_get_client_name(client.get())) + "\", " +
           std::to_string(jack_get_sample_rate(client.get())) + " Hz, " +
           std::to_string(jack_get_buffer_size(client.get())) + " frames";
}

// --- start

void JackSystem::addSynthesizer()
{
    OutputPort* port = ports.addOutput(SYNTHESIZER_NAME);
    try {
        synthesizer = std::make_unique<JackSynthesizer>(client.get(), *port);
        port->open();
    } catch (const std::runtime_error& reason) {
        port->couldNotOpen = true;
        complaints.push_back("The built-in synthesizer is silent: " + std::string(reason.what()) + ".");
    }
}

// The own port of a foreign one tells its direction: two devices may share a name, two ports of a client may not.
void JackSystem::addInput(const ForeignPort& source)
{
    InputPort* port = ports.addInput(source.shownName);
    if (port == nullptr) return;
    inputs.push_back(
        {port, registerMidi(*port, source.jackName.empty() ? "" : "from ", JackPortIsInput), source.jackName});
}

void JackSystem::addOutput(const ForeignPort& sink)
{
    OutputPort* port = ports.addOutput(sink.shownName);
    if (port == nullptr) return;
    outputs.push_back({port, registerMidi(*port, sink.jackName.empty() ? "" : "to ", JackPortIsOutput), sink.jackName});
}

jack_port_t* JackSystem::registerMidi(Port& port, const char* prefix, JackPortFlags direction)
{
    const auto room = static_cast<std::size_t>(jack_port_name_size() - jack_client_name_size() - 1);
    const std::string own = (prefix + port.name).substr(0, room);
    jack_port_t* registered = jack_port_register(client.get(), own.c_str(), JACK_DEFAULT_MIDI_TYPE, direction, 0);
    port.couldNotOpen = registered == nullptr;
    return registered;
}

void JackSystem::activate()
{
    jack_set_process_callback(client.get(), process, this);
    jack_on_info_shutdown(client.get(), shutDown, this);
    if (jack_activate(client.get()) != 0) {
        died.store(true);
        complaints.push_back("The JACK server refuses to run the client.");
        markGone();
        return;
    }
    if (synthesizer && !synthesizer->connectToSoundCard(client.get()))
        complaints.push_back("The JACK graph has no sound output; connect the synthesizer's ports by hand.");
    for (std::size_t index = 0; index < inputs.size(); ++index) enableInput(index, true);
    for (std::size_t index = 0; index < outputs.size(); ++index) enableOutput(index + 1, true);
}

void JackSystem::startClock(Clock& songClock)
{
    if (hasDied()) {
        songClock.startOnThread();
        return;
    }
    songClock.startInGraph(jack_get_sample_rate(client.get()));
    clock.store(&songClock);
    if (hasDied()) songClock.graphDied();
}

bool JackSystem::followTransport()
{
    followsTransport.store(true);
    return true;
}

void JackSystem::listen(Listener listener)
{
    reader.start(std::move(listener));
    listening.store(true);
}

void JackSystem::stopListening()
{
    listening.store(false);
    reader.stop();
}

// --- ports

void JackSystem::enableInput(std::size_t index, bool enabled)
{
    const auto& input = inputs[index];
    input.port->enabled = enabled;
    input.port->open.store(enabled);
    if (hasDied() || input.own == nullptr) return;
    if (enabled)
        input.port->couldNotOpen = !join(input);
    else if (!input.foreign.empty())
        jack_disconnect(client.get(), input.foreign.c_str(), jack_port_name(input.own));
}

void JackSystem::enableOutput(std::size_t index, bool enabled)
{
    OutputPort& port = *ports.outputs()[index];
    port.enabled = enabled;
    if (hasDied()) return;
    const JackMidiPort<OutputPort>* output = index > 0 ? &outputs[index - 1] : nullptr;
    if (enabled) {
        if (output != nullptr) port.couldNotOpen = output->own == nullptr || !join(*output);
        if (!port.couldNotOpen) port.open();
        return;
    }
    port.close();
    if (waitUntilSilent() && output != nullptr && output->own != nullptr && !output->foreign.empty())
        jack_disconnect(client.get(), jack_port_name(output->own), output->foreign.c_str());
}

bool JackSystem::join(const JackMidiPort<InputPort>& input)
{
    if (input.foreign.empty()) return true;
    const int result = jack_connect(client.get(), input.foreign.c_str(), jack_port_name(input.own));
    return result == 0 || result == EEXIST;
}

bool JackSystem::join(const JackMidiPort<OutputPort>& output)
{
    if (output.foreign.empty()) return true;
    const int result = jack_connect(client.get(), jack_port_name(output.own), output.foreign.c_str());
    return result == 0 || result == EEXIST;
}

std::string JackSystem::fullName(const std::string& portName) const
{
    return portName.find(':') != std::string::npos ? portName : jack_get_client_name(client.get()) + (":" + portName);
}

void JackSystem::connect(const std::string& from, const std::string& to)
{
    for (const std::string& port : {fullName(from), fullName(to)})
        if (jack_port_by_name(client.get(), port.c_str()) == nullptr)
            throw std::runtime_error("there is no port \"" + port + "\"");
    const int result = jack_connect(client.get(), fullName(from).c_str(), fullName(to).c_str());
    if (result != 0 && result != EEXIST)
        throw std::runtime_error(
            "the JACK server refuses (the first must be an output, the second an input of one kind)");
}

void JackSystem::markGone()
{
    for (const auto& input : ports.inputs()) input->found = false;
    for (const auto& output : ports.outputs()) output->found = false;
    // The synthesizer is still here; what it sounded through is not.
    ports.outputs()[0]->found = true;
    ports.outputs()[0]->couldNotOpen = true;
    for (const auto& output : ports.outputs()) output->close();
}

// --- the end

bool JackSystem::waitFor(const std::function<bool()>& condition) const
{
    const auto giveUp = std::chrono::steady_clock::now() + LONGEST_WAIT;
    while (!condition()) {
        if (hasDied() || std::chrono::steady_clock::now() > giveUp) return false;
        std::this_thread::sleep_for(1ms);
    }
    return true;
}

/// False if the server is dead or stands still: what it is asked then may never be answered.
bool JackSystem::waitUntilSilent() const
{
    const auto isClosing = [](const auto& port) { return port->isClosing(); };
    if (!waitFor([&] { return std::ranges::none_of(ports.outputs(), isClosing); })) return false;
    const std::uint64_t heard = periods.load() + PERIODS_TO_BE_HEARD;
    return waitFor([&] { return periods.load() >= heard; });
}

void JackSystem::close()
{
    if (!client) return;
    stopListening();
    for (const auto& port : ports.outputs()) port->close();
    // Asked to close by a server that stands still we would wait for ever.
    if (waitUntilSilent() || hasDied())
        client.reset();
    else
        static_cast<void>(client.release());
}

// --- the server's threads

int JackSystem::process(jack_nframes_t frames, void* self)
{
    static_cast<JackSystem*>(self)->playPeriod(frames);
    return 0;
}

void JackSystem::playPeriod(jack_nframes_t frames)
{
    Clock* const songClock = clock.load();
    bool arrived = false;
    if (listening.load())
        for (std::size_t index = 0; index < inputs.size(); ++index) {
            const JackClockEar ear{songClock, static_cast<int>(index), periodStart};
            arrived = receive(inputs[index], frames, ear) || arrived;
        }
    if (arrived) reader.wake();

    if (songClock != nullptr && followsTransport.load()) {
        const Transport transport = findTransport(client.get());
        songClock->playPeriod(periodStart, frames, &transport);
    } else if (songClock != nullptr) {
        songClock->playPeriod(periodStart, frames);
    }

    for (const auto& output : outputs) Host::deliver(output, periodStart, frames);
    if (synthesizer) synthesizer->render(periodStart, frames);
    periodStart += frames;
    periods.fetch_add(1);
}

void JackSystem::shutDown(jack_status_t, const char*, void* self)
{
    auto& system = *static_cast<JackSystem*>(self);
    system.died.store(true);
    if (Clock* songClock = system.clock.load()) songClock->graphDied();
    system.hostEvent.set();
}
}  // namespace Host
