#include "host/jack/JackSystem.h"

#include <algorithm>
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
constexpr std::size_t SYNTHESIZER = 0;

// What a port wrote in one period has certainly been read by everyone when the second one behind it is over.
constexpr std::uint64_t PERIODS_TO_BE_HEARD = 2;
constexpr std::uint64_t PERIODS_TO_BE_JOINED = 3;
constexpr int TRIES_TO_BE_HEARD = 5;  // where each meets an xrun
constexpr auto UNTIL_IT_IS_CALLED = 300ms;
constexpr auto UNTIL_ALL_IS_READ = 200ms;
constexpr auto TIME_TO_SETTLE = 200ms;

// Addresses that no port of a graph has: those begin with the name of a client.
const MidiDevice SYNTHESIZER_DEVICE{":synthesizer", SYNTHESIZER_NAME};
const MidiDevice FREE_INPUT_DEVICE{":in", FREE_INPUT};
const MidiDevice FREE_OUTPUT_DEVICE{":out", FREE_OUTPUT};

bool standsForADevice(const Port& port) { return !port.device.address.starts_with(':'); }

std::string shortNameOf(jack_port_t* own) { return std::string(":") + jack_port_short_name(own); }
}  // namespace

JackSystem::JackSystem(JackClient openClient, std::string wantedName, Ports& allPorts, Event& wakeEvent)
    : clientName(std::move(wantedName)), ports(allPorts), wake(wakeEvent), reader(allPorts)
{
    makeSynthesizer(jack_get_sample_rate(openClient.get()));
    if (!enter(std::move(openClient)))
        news.push_back("The JACK server refuses to run the client.");
    else if (synthesizerEntered && !synthesizer->connectToSoundCard(client.get()))
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
           std::to_string(jack_get_buffer_size(client.get())) + " frames, " + std::to_string(xruns.load()) + " xruns";
}

RealTimeAnswer JackSystem::clockPriority() const
{
    if (!client) return MidiSystem::clockPriority();
    return graphPriority.load() > 0 ? RealTimeAnswer::granted : RealTimeAnswer::refused;
}

void JackSystem::startClock(Clock& songClock)
{
    if (!client || hasDied()) {
        songClock.startOnThread();
        clock.store(&songClock);
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
    if (client && !hasDied()) joinInputs();
}

void JackSystem::stopListening()
{
    listening.store(false);
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
    died.store(false);
    client = std::move(newClient);
    playedClient = client.get();
    setCallbacks(client.get());
    rate.store(playedRate = jack_get_sample_rate(client.get()));
    enterSynthesizer();
    // Now and then the server of a busy machine takes a client in and never wakes it: the next one may do better.
    if (jack_activate(client.get()) != 0 || !waitForPeriods(1)) {
        died.store(true);
        leaveDeadGraph();
        return false;
    }
    ports.outputs()[SYNTHESIZER]->found = false;  // as every device before the first look
    newcomers.clear();
    newOutputs.clear();
    followDevices(Newcomers::atOnce);
    noteClockPriority(graphPriority.load());
    return true;
}

void JackSystem::enterSynthesizer()
{
    if (!synthesizer) return;
    try {
        synthesizer->setRate(jack_get_sample_rate(client.get()));
        synthesizer->enter(client.get());
        synthesizerEntered.store(true);
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

/// What sounded at the far ends stays in the ledgers, and is released when they are back.
void JackSystem::leaveDeadGraph()
{
    for (const auto& input : ports.inputs()) input->open.store(false);
    for (const auto& output : ports.outputs()) output->close();
    closeDeadClient();  // and with it the process callback
    wiring.lose();
    listensFrom.reset();
    synthesizerEntered.store(false);
    for (auto* own : {&ownInputs, &ownOutputs})
        for (auto& port : *own) port.store(nullptr);
    for (const auto& input : ports.inputs()) input->found = false;
    for (const auto& output : ports.outputs()) {
        output->found = false;
        output->lose();
    }
    // The synthesizer is still here; what it sounded through is not.
    ports.outputs()[SYNTHESIZER]->found = true;
    ports.outputs()[SYNTHESIZER]->couldNotOpen = true;
}

bool JackSystem::enterNewGraph()
{
    auto newClient = openJackClient(clientName);
    const bool sounded = wiring.isWired(std::string(":") + JackSynthesizer::LEFT);
    if (!newClient || !enter(std::move(newClient))) return false;
    if (sounded && synthesizerEntered && !synthesizer->isConnected()) synthesizer->connectToSoundCard(client.get());
    if (Clock* songClock = clock.load()) {
        songClock->returnToGraph(rate.load());
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
    followXruns();
    followNewListeners();
    // A server that stands still would keep us waiting for an answer.
    if ((!portsChanged && !wiresChanged) || !waitForPeriods(1)) return false;
    if (portsChanged.exchange(false)) return followDevices(Newcomers::whenSettled);
    if (wiresChanged.exchange(false)) followWires(false);
    return false;
}

// --- devices come and go

bool JackSystem::followDevices(Newcomers newcomersPlay)
{
    bool changed = false;
    const auto andNote = [&](void (JackSystem::*follow)(std::size_t)) {
        return [this, &changed, follow](std::size_t index) {
            (this->*follow)(index);
            changed = true;
        };
    };
    auto sources = findForeignMidiPorts(client.get(), JackPortIsOutput);
    auto sinks = findForeignMidiPorts(client.get(), JackPortIsInput);
    if (newcomersPlay == Newcomers::whenSettled) {
        sources = settled(std::move(sources));
        sinks = settled(std::move(sinks));
    }
    sources.insert(sources.begin(), FREE_INPUT_DEVICE);
    sinks.insert(sinks.begin(), {SYNTHESIZER_DEVICE, FREE_OUTPUT_DEVICE});
    ports.settleInputs(sources, andNote(&JackSystem::removeInput), andNote(&JackSystem::addInput));
    ports.settleOutputs(sinks, andNote(&JackSystem::removeOutput), andNote(&JackSystem::addOutput));
    followWires(true);
    openNewOutputs();
    return changed;
}

/// Those among what was found that were there before, or have been for a while. Whoever enters a graph often gets its
/// name and its wires only then.
std::vector<MidiDevice> JackSystem::settled(std::vector<MidiDevice> found)
{
    const auto now = std::chrono::steady_clock::now();
    std::erase_if(found, [&](const MidiDevice& device) {
        const auto isIt = [&](const auto& port) { return port->found && port->device.address == device.address; };
        if (std::ranges::any_of(ports.inputs(), isIt) || std::ranges::any_of(ports.outputs(), isIt)) return false;
        const Time since = newcomers.try_emplace(device.address, now).first->second;
        if (now - since < TIME_TO_SETTLE) {
            portsChanged.store(true);  // to be looked at again
            return true;
        }
        newcomers.erase(device.address);
        return false;
    });
    std::erase_if(newcomers, [&](const auto& newcomer) { return now - newcomer.second > 2 * TIME_TO_SETTLE; });
    return found;
}

/// Whoever missed a period did not hear what ended then.
bool JackSystem::followXruns()
{
    const std::uint64_t count = xruns.load();
    if (count == std::exchange(xrunsSeen, count)) return false;
    for (const auto& output : ports.outputs()) output->listenerMissed();
    return true;
}

/// A wire may stand before the server calls who is at its other end.
void JackSystem::followNewListeners()
{
    if (!listensFrom || *listensFrom > std::chrono::steady_clock::now()) return;
    listensFrom.reset();
    for (const auto& output : ports.outputs()) output->listenerListens();
}

void JackSystem::followWires(bool becauseOfPorts)
{
    for (const Wire& wire : wiring.look(client.get(), becauseOfPorts)) {
        noteCutInput(wire, becauseOfPorts);
        if (OutputPort* output = findOutput(wire)) output->listenerWent();
    }
    // What is sent before the wires stand would not be heard.
    if (wiring.mend(client.get())) waitForPeriods(PERIODS_TO_BE_JOINED);
    if (listening.load()) joinInputs();
    for (const Wire& wire : wiring.takeNew()) {
        if (OutputPort* output = findOutput(wire)) {
            output->listenerIsBack();
            listensFrom = std::chrono::steady_clock::now() + UNTIL_IT_IS_CALLED;
        }
        tellLoop(wire);
    }
}

void JackSystem::tellLoop(const Wire& wire)
{
    const auto& [from, to] = wire;
    if (JackWiring::isOwn(from) && JackWiring::isOwn(to))
        news.push_back("A loop: \"" + from.substr(1) + "\" is wired to \"" + to.substr(1) +
                       "\", so what is played there comes in again.");
}

/// The output from which a wire leads, null for none.
OutputPort* JackSystem::findOutput(const Wire& wire) const
{
    for (std::size_t index = 0; index < ports.outputs().size(); ++index)
        if (jack_port_t* own = ownOutputs[index]; own != nullptr && shortNameOf(own) == wire.first)
            return ports.outputs()[index].get();
    return nullptr;
}

/// A wire to one of our inputs is gone, and whoever is at its other end cannot release the keys that are down. If it is
/// a device that went and came between two looks, it is joined as any newcomer.
void JackSystem::noteCutInput(const Wire& wire, bool becauseOfPorts)
{
    for (std::size_t index = 0; index < ports.inputs().size(); ++index) {
        jack_port_t* own = ownInputs[index];
        if (own == nullptr || shortNameOf(own) != wire.second) continue;
        cutInputs.insert(index);
        if (!becauseOfPorts || wire != wireOf(*ports.inputs()[index], own)) continue;
        wiring.forget(wire);
        joinFrom[index] = std::chrono::steady_clock::now() + TIME_TO_SETTLE;
    }
}

bool JackSystem::isWiredByHand(const InputPort& port) const
{
    return wiring.stands({port.device.address, std::string(":") + FREE_INPUT});
}

/// Those that are not heard at "Orvane In" already.
void JackSystem::joinInputs()
{
    const auto now = std::chrono::steady_clock::now();
    for (std::size_t index = 0; index < ports.inputs().size(); ++index) {
        const InputPort& port = *ports.inputs()[index];
        jack_port_t* own = ownInputs[index];
        if (own == nullptr || !port.enabled || !standsForADevice(port)) continue;
        const bool joined = wiring.stands(wireOf(port, own));
        if (isWiredByHand(port)) {
            if (joined) wiring.part(client.get(), wireOf(port, own));
            joinFrom[index] = now;
        } else if (joinFrom[index] && *joinFrom[index] > now) {
            wiresChanged.store(true);  // to be looked at again
        } else if (std::exchange(joinFrom[index], std::nullopt) && !joined) {
            openInput(index);
        }
    }
}

void JackSystem::addInput(std::size_t index)
{
    InputPort& port = *ports.inputs()[index];
    jack_port_t* own = registerMidi(port, FROM_DEVICE, JackPortIsInput);
    ownInputs[index].store(own);
    port.couldNotOpen = own == nullptr;
    joinFrom[index] = std::chrono::steady_clock::now();
    if (own == nullptr) return;
    wiring.forget(wireOf(port, own));
    if (port.enabled) port.open.store(true);  // joined once somebody listens and the wires are known
}

void JackSystem::removeInput(std::size_t index)
{
    ports.inputs()[index]->open.store(false);
    ports.inputs()[index]->couldNotOpen = false;
    unregister(ownInputs[index]);
}

void JackSystem::addOutput(std::size_t index)
{
    OutputPort& port = *ports.outputs()[index];
    if (index == SYNTHESIZER) {
        port.couldNotOpen = !synthesizerEntered.load();
        if (port.enabled) openOutput(index);
        return;
    }
    jack_port_t* own = registerMidi(port, TO_DEVICE, JackPortIsOutput);
    port.couldNotOpen = own == nullptr;
    if (own == nullptr) return;
    wiring.forget(wireOf(port, own));
    newOutputs.emplace_back(index, own);
}

/// What sounded at the far end when the device went is released there before anything else: so the wires have to
/// stand, which takes the server some periods.
void JackSystem::openNewOutputs()
{
    for (const auto& [index, own] : newOutputs)
        if (OutputPort& port = *ports.outputs()[index]; port.enabled)
            port.couldNotOpen = join(port, wireOf(port, own)) != 0;
    if (!newOutputs.empty()) waitForPeriods(PERIODS_TO_BE_JOINED);
    for (const auto& [index, own] : newOutputs) {
        OutputPort& port = *ports.outputs()[index];
        ownOutputs[index].store(own);
        if (port.enabled && !port.couldNotOpen && waitUntilSilent(index, index + 1)) port.open();
    }
    newOutputs.clear();
}

void JackSystem::removeOutput(std::size_t index)
{
    OutputPort& port = *ports.outputs()[index];
    port.close();
    port.couldNotOpen = false;
    unregister(ownOutputs[index]);
    port.lose();
}

// The own port of a foreign one tells its direction: two devices may share a name, two ports of a client may not.
jack_port_t* JackSystem::registerMidi(const Port& port, const char* prefix, JackPortFlags direction)
{
    const auto room = static_cast<std::size_t>(jack_port_name_size() - jack_client_name_size() - 1);
    const std::string own = ((standsForADevice(port) ? prefix : "") + port.name).substr(0, room);
    return jack_port_register(client.get(), own.c_str(), JACK_DEFAULT_MIDI_TYPE, direction, 0);
}

void JackSystem::unregister(std::atomic<jack_port_t*>& own)
{
    jack_port_t* port = own.exchange(nullptr);
    // The period under way may still use it.
    if (port != nullptr && waitForPeriods(2)) jack_port_unregister(client.get(), port);
}

Wire JackSystem::wireOf(const InputPort& port, jack_port_t* own) const
{
    return {port.device.address, shortNameOf(own)};
}

Wire JackSystem::wireOf(const OutputPort& port, jack_port_t* own) const
{
    return {shortNameOf(own), port.device.address};
}

int JackSystem::join(const Port& port, const Wire& wire)
{
    return standsForADevice(port) ? wiring.join(client.get(), wire) : 0;
}

void JackSystem::openInput(std::size_t index)
{
    InputPort& port = *ports.inputs()[index];
    port.couldNotOpen = !isWiredByHand(port) && join(port, wireOf(port, ownInputs[index])) != 0;
    port.open.store(true);
}

void JackSystem::openOutput(std::size_t index)
{
    OutputPort& port = *ports.outputs()[index];
    if (index != SYNTHESIZER) port.couldNotOpen = join(port, wireOf(port, ownOutputs[index])) != 0;
    if (!port.couldNotOpen && waitUntilSilent(index, index + 1)) port.open();
}

void JackSystem::enableInput(std::size_t index, bool enabled)
{
    InputPort& port = *ports.inputs()[index];
    port.enabled = enabled;
    jack_port_t* own = ownInputs[index];
    if (own == nullptr || hasDied()) return;
    if (enabled) {
        openInput(index);
        return;
    }
    port.open.store(false);
    if (standsForADevice(port)) jack_disconnect(client.get(), port.device.address.c_str(), jack_port_name(own));
}

void JackSystem::enableOutput(std::size_t index, bool enabled)
{
    OutputPort& port = *ports.outputs()[index];
    port.enabled = enabled;
    jack_port_t* own = ownOutputs[index];
    if (!client || hasDied() || (index == SYNTHESIZER ? !synthesizerEntered : own == nullptr)) return;
    if (enabled) {
        openOutput(index);
        return;
    }
    port.close();
    if (waitUntilSilent(index, index + 1) && waitForPeriods(PERIODS_TO_BE_HEARD) && own != nullptr &&
        standsForADevice(port))
        jack_disconnect(client.get(), jack_port_name(own), port.device.address.c_str());
}

void JackSystem::connect(const std::string& from, const std::string& to)
{
    if (!client) throw std::runtime_error("there is no JACK server");
    const auto wired = [&](const std::string& port) { return port.find(':') != std::string::npos ? port : ":" + port; };
    const Wire wire{wired(from), wired(to)};
    for (const std::string& end : {wire.first, wire.second}) {
        const std::string port = JackWiring::isOwn(end) ? jack_get_client_name(client.get()) + end : end;
        if (jack_port_by_name(client.get(), port.c_str()) == nullptr)
            throw std::runtime_error("there is no port \"" + port + "\"");
    }
    if (wiring.join(client.get(), wire) != 0)
        throw std::runtime_error(
            "the JACK server refuses (the first must be an output, the second an input of one kind)");
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
bool JackSystem::waitForPeriods(std::uint64_t count) const
{
    const std::uint64_t enough = periods.load() + count;
    return waitFor([&] { return periods.load() >= enough; });
}

/// False as above. Outputs that have no device are left out.
bool JackSystem::waitUntilSilent(std::size_t first, std::size_t end) const
{
    const auto isClosing = [&](std::size_t index) {
        const bool isDelivered = index == SYNTHESIZER ? synthesizerEntered.load() : ownOutputs[index] != nullptr;
        return isDelivered && ports.outputs()[index]->isClosing();
    };
    return waitFor([&] {
        for (std::size_t index = first; index < end; ++index)
            if (isClosing(index)) return false;
        return true;
    });
}

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
    followXruns();
    bool goesOn = waitUntilSilent(0, ports.outputs().size()) && waitForPeriods(PERIODS_TO_BE_HEARD);
    for (int tries = 0; tries < TRIES_TO_BE_HEARD && goesOn && followXruns(); ++tries)
        goesOn = waitForPeriods(PERIODS_TO_BE_HEARD);
    if (hasDied())
        closeDeadClient();
    else if (goesOn)
        client.reset();
    else
        static_cast<void>(client.release());
}

// --- the server's threads

void JackSystem::setCallbacks(jack_client_t* newClient)
{
    jack_set_process_callback(newClient, process, this);
    jack_set_thread_init_callback(
        newClient, [](void* self) { static_cast<JackSystem*>(self)->newThread.store(true); }, this);
    // Either is enough for JACK's own library; an older one of PipeWire's knows the first alone.
    jack_on_shutdown(
        newClient, [](void* self) { shutDown(JackFailure, "", self); }, this);
    jack_on_info_shutdown(newClient, shutDown, this);
    jack_set_sample_rate_callback(newClient, noteRate, this);
    jack_set_xrun_callback(
        newClient,
        [](void* self) {
            static_cast<JackSystem*>(self)->xruns.fetch_add(1);
            return 0;
        },
        this);
    jack_set_port_registration_callback(
        newClient,
        [](jack_port_id_t, int, void* self) {
            auto& system = *static_cast<JackSystem*>(self);
            system.tellOfChange(system.portsChanged);
        },
        this);
    jack_set_port_connect_callback(
        newClient,
        [](jack_port_id_t, jack_port_id_t, int, void* self) {
            auto& system = *static_cast<JackSystem*>(self);
            system.tellOfChange(system.wiresChanged);
        },
        this);
}

// The server must not be asked anything from here.
void JackSystem::tellOfChange(std::atomic<bool>& change)
{
    change.store(true);
    wake.set();
}

int JackSystem::noteRate(jack_nframes_t newRate, void* self)
{
    static_cast<JackSystem*>(self)->rate.store(newRate);
    return 0;
}

int JackSystem::process(jack_nframes_t frames, void* self)
{
    static_cast<JackSystem*>(self)->playPeriod(frames);
    return 0;
}

void JackSystem::playPeriod(jack_nframes_t frames)
{
    const std::size_t inputs = ports.inputs().size();
    const std::size_t outputs = ports.outputs().size();
    Clock* const songClock = clock.load();

    bool arrived = false;
    for (std::size_t index = 0; index < inputs && listening.load(); ++index)
        if (jack_port_t* own = ownInputs[index]) {
            const JackClockEar ear{songClock, static_cast<int>(index), periodStart};
            arrived = receive(*ports.inputs()[index], own, frames, ear) || arrived;
        }
    if (arrived) reader.wake();

    if (newThread.exchange(false)) takePriority();
    if (const jack_nframes_t newRate = rate.load(); newRate != playedRate) {
        if (songClock != nullptr) songClock->setGraphRate(newRate);
        if (synthesizerEntered.load()) synthesizer->setRate(newRate);
        playedRate = newRate;
    }
    if (songClock != nullptr) play(*songClock, frames);

    for (std::size_t index = 1; index < outputs; ++index)
        if (jack_port_t* own = ownOutputs[index]) Host::deliver(*ports.outputs()[index], own, periodStart, frames);
    if (synthesizerEntered.load()) synthesizer->render(periodStart, frames);
    periodStart += frames;
    periods.fetch_add(1);
}

void JackSystem::play(Clock& songClock, jack_nframes_t frames)
{
    if (followsTransport.load()) {
        const Transport transport = findTransport(playedClient);
        songClock.playPeriod(periodStart, frames, &transport);
    } else {
        songClock.playPeriod(periodStart, frames);
    }
}

// A server without real-time rights gives its clients none; the system may.
void JackSystem::takePriority()
{
    if (realTimePriority() == 0) requestRealTimePriority(RealTimeStep::clock);
    graphPriority.store(realTimePriority());
}

void JackSystem::shutDown(jack_status_t, const char*, void* self)
{
    auto& system = *static_cast<JackSystem*>(self);
    system.died.store(true);
    if (Clock* songClock = system.clock.load()) songClock->graphDied();
    system.wake.set();
}
}  // namespace Host
