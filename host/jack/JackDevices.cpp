#include "host/jack/JackDevices.h"

#include <algorithm>
#include <stdexcept>

#include "host/devices/MidiSystem.h"
#include "host/jack/JackClient.h"

namespace Host
{
using namespace std::chrono_literals;

namespace
{
constexpr std::size_t SYNTHESIZER = 0;
constexpr auto UNTIL_IT_IS_CALLED = 300ms;
constexpr auto TIME_TO_SETTLE = 200ms;

// Addresses that no port of a graph has: those begin with the name of a client.
const MidiDevice SYNTHESIZER_DEVICE{":synthesizer", SYNTHESIZER_NAME};
const MidiDevice FREE_INPUT_DEVICE{":in", FREE_INPUT};
const MidiDevice FREE_OUTPUT_DEVICE{":out", FREE_OUTPUT};

bool standsForADevice(const Port& port) { return !port.device.address.starts_with(':'); }

std::string shortNameOf(jack_port_t* own) { return std::string(":") + jack_port_short_name(own); }
}  // namespace

void JackDevices::enter(jack_client_t* newClient)
{
    client = newClient;
    ports.outputs()[SYNTHESIZER]->found = false;  // as every device before the first look
    newcomers.clear();
    newOutputs.clear();
    follow(Newcomers::atOnce);
}

void JackDevices::close()
{
    for (const auto& input : ports.inputs()) input->open.store(false);
    for (const auto& output : ports.outputs()) output->close();
}

void JackDevices::lose()
{
    client = nullptr;
    wiring.lose();
    listensFrom.reset();
    for (auto* own : {&periods.inputs, &periods.outputs})
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

bool JackDevices::refresh()
{
    followXruns();
    followNewListeners();
    // A server that stands still would keep us waiting for an answer.
    if ((!periods.portsChanged && !periods.wiresChanged) || !periods.waitFor(1)) return false;
    if (periods.portsChanged.exchange(false)) return follow(Newcomers::whenSettled);
    if (periods.wiresChanged.exchange(false)) followWires(false);
    return false;
}

// --- devices come and go

bool JackDevices::follow(Newcomers newcomersPlay)
{
    bool changed = false;
    const auto andNote = [&](void (JackDevices::*change)(std::size_t)) {
        return [this, &changed, change](std::size_t index) {
            (this->*change)(index);
            changed = true;
        };
    };
    auto sources = findForeignMidiPorts(client, JackPortIsOutput);
    auto sinks = findForeignMidiPorts(client, JackPortIsInput);
    if (newcomersPlay == Newcomers::whenSettled) {
        sources = settled(std::move(sources));
        sinks = settled(std::move(sinks));
    }
    sources.insert(sources.begin(), FREE_INPUT_DEVICE);
    sinks.insert(sinks.begin(), {SYNTHESIZER_DEVICE, FREE_OUTPUT_DEVICE});
    ports.settleInputs(sources, andNote(&JackDevices::removeInput), andNote(&JackDevices::addInput));
    ports.settleOutputs(sinks, andNote(&JackDevices::removeOutput), andNote(&JackDevices::addOutput));
    followWires(true);
    openNewOutputs();
    return changed;
}

/// Those among what was found that were there before, or have been for a while. Whoever enters a graph often gets its
/// name and its wires only then.
std::vector<MidiDevice> JackDevices::settled(std::vector<MidiDevice> found)
{
    const auto now = std::chrono::steady_clock::now();
    std::erase_if(found, [&](const MidiDevice& device) {
        const auto isIt = [&](const auto& port) { return port->found && port->device.address == device.address; };
        if (std::ranges::any_of(ports.inputs(), isIt) || std::ranges::any_of(ports.outputs(), isIt)) return false;
        const Time since = newcomers.try_emplace(device.address, now).first->second;
        if (now - since < TIME_TO_SETTLE) {
            periods.portsChanged.store(true);  // to be looked at again
            return true;
        }
        newcomers.erase(device.address);
        return false;
    });
    std::erase_if(newcomers, [&](const auto& newcomer) { return now - newcomer.second > 2 * TIME_TO_SETTLE; });
    return found;
}

/// Whoever missed a period did not hear what ended then.
bool JackDevices::followXruns()
{
    const std::uint64_t count = periods.getXruns();
    if (count == std::exchange(xrunsSeen, count)) return false;
    for (const auto& output : ports.outputs()) output->listenerMissed();
    return true;
}

/// A wire may stand before the server calls who is at its other end.
void JackDevices::followNewListeners()
{
    if (!listensFrom || *listensFrom > std::chrono::steady_clock::now()) return;
    listensFrom.reset();
    for (const auto& output : ports.outputs()) output->listenerListens();
}

void JackDevices::followWires(bool becauseOfPorts)
{
    for (const Wire& wire : wiring.look(client, becauseOfPorts)) {
        noteCutInput(wire, becauseOfPorts);
        if (OutputPort* output = findOutput(wire)) output->listenerWent();
    }
    // What is sent before the wires stand would not be heard.
    if (wiring.mend(client)) periods.waitFor(JackPeriods::TO_BE_JOINED);
    if (periods.listens.load()) joinInputs();
    for (const Wire& wire : wiring.takeNew()) {
        if (OutputPort* output = findOutput(wire)) {
            output->listenerIsBack();
            listensFrom = std::chrono::steady_clock::now() + UNTIL_IT_IS_CALLED;
        }
        tellLoop(wire);
    }
}

void JackDevices::tellLoop(const Wire& wire)
{
    const auto& [from, to] = wire;
    if (JackWiring::isOwn(from) && JackWiring::isOwn(to))
        news.push_back("A loop: \"" + from.substr(1) + "\" is wired to \"" + to.substr(1) +
                       "\", so what is played there comes in again.");
}

/// The output from which a wire leads, null for none.
OutputPort* JackDevices::findOutput(const Wire& wire) const
{
    for (std::size_t index = 0; index < ports.outputs().size(); ++index)
        if (jack_port_t* own = periods.outputs[index]; own != nullptr && shortNameOf(own) == wire.first)
            return ports.outputs()[index].get();
    return nullptr;
}

/// A wire to one of our inputs is gone, and whoever is at its other end cannot release the keys that are down. If it is
/// a device that went and came between two looks, it is joined as any newcomer.
void JackDevices::noteCutInput(const Wire& wire, bool becauseOfPorts)
{
    for (std::size_t index = 0; index < ports.inputs().size(); ++index) {
        jack_port_t* own = periods.inputs[index];
        if (own == nullptr || shortNameOf(own) != wire.second) continue;
        cutInputs.insert(index);
        if (!becauseOfPorts || wire != wireOf(*ports.inputs()[index], own)) continue;
        wiring.forget(wire);
        joinFrom[index] = std::chrono::steady_clock::now() + TIME_TO_SETTLE;
    }
}

bool JackDevices::isWiredByHand(const InputPort& port) const
{
    return wiring.stands({port.device.address, std::string(":") + FREE_INPUT});
}

/// Those that are not heard at "Orvane In" already.
void JackDevices::joinInputs()
{
    const auto now = std::chrono::steady_clock::now();
    for (std::size_t index = 0; index < ports.inputs().size(); ++index) {
        const InputPort& port = *ports.inputs()[index];
        jack_port_t* own = periods.inputs[index];
        if (own == nullptr || !port.enabled || !standsForADevice(port)) continue;
        const bool joined = wiring.stands(wireOf(port, own));
        if (isWiredByHand(port)) {
            if (joined) wiring.part(client, wireOf(port, own));
            joinFrom[index] = now;
        } else if (joinFrom[index] && *joinFrom[index] > now) {
            periods.wiresChanged.store(true);  // to be looked at again
        } else if (std::exchange(joinFrom[index], std::nullopt) && !joined) {
            openInput(index);
        }
    }
}

void JackDevices::addInput(std::size_t index)
{
    InputPort& port = *ports.inputs()[index];
    jack_port_t* own = registerMidi(port, FROM_DEVICE, JackPortIsInput);
    periods.inputs[index].store(own);
    port.couldNotOpen = own == nullptr;
    joinFrom[index] = std::chrono::steady_clock::now();
    if (own == nullptr) return;
    wiring.forget(wireOf(port, own));
    if (port.enabled) port.open.store(true);  // joined once somebody listens and the wires are known
}

void JackDevices::removeInput(std::size_t index)
{
    ports.inputs()[index]->open.store(false);
    ports.inputs()[index]->couldNotOpen = false;
    unregister(periods.inputs[index]);
}

void JackDevices::addOutput(std::size_t index)
{
    OutputPort& port = *ports.outputs()[index];
    if (index == SYNTHESIZER) {
        port.couldNotOpen = !isSynthesizerThere();
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
void JackDevices::openNewOutputs()
{
    for (const auto& [index, own] : newOutputs)
        if (OutputPort& port = *ports.outputs()[index]; port.enabled)
            port.couldNotOpen = join(port, wireOf(port, own)) != 0;
    if (!newOutputs.empty()) periods.waitFor(JackPeriods::TO_BE_JOINED);
    for (const auto& [index, own] : newOutputs) {
        OutputPort& port = *ports.outputs()[index];
        periods.outputs[index].store(own);
        if (port.enabled && !port.couldNotOpen && periods.waitUntilSilent(index, index + 1)) port.open();
    }
    newOutputs.clear();
}

void JackDevices::removeOutput(std::size_t index)
{
    OutputPort& port = *ports.outputs()[index];
    port.close();
    port.couldNotOpen = false;
    unregister(periods.outputs[index]);
    port.lose();
}

// The own port of a foreign one tells its direction: two devices may share a name, two ports of a client may not.
jack_port_t* JackDevices::registerMidi(const Port& port, const char* prefix, JackPortFlags direction)
{
    const auto room = static_cast<std::size_t>(jack_port_name_size() - jack_client_name_size() - 1);
    const std::string own = ((standsForADevice(port) ? prefix : "") + port.name).substr(0, room);
    return jack_port_register(client, own.c_str(), JACK_DEFAULT_MIDI_TYPE, direction, 0);
}

void JackDevices::unregister(std::atomic<jack_port_t*>& own)
{
    jack_port_t* port = own.exchange(nullptr);
    // The period under way may still use it.
    if (port != nullptr && periods.waitFor(JackPeriods::TO_BE_HEARD)) jack_port_unregister(client, port);
}

Wire JackDevices::wireOf(const InputPort& port, jack_port_t* own) const
{
    return {port.device.address, shortNameOf(own)};
}

Wire JackDevices::wireOf(const OutputPort& port, jack_port_t* own) const
{
    return {shortNameOf(own), port.device.address};
}

int JackDevices::join(const Port& port, const Wire& wire)
{
    return standsForADevice(port) ? wiring.join(client, wire) : 0;
}

void JackDevices::openInput(std::size_t index)
{
    InputPort& port = *ports.inputs()[index];
    port.couldNotOpen = !isWiredByHand(port) && join(port, wireOf(port, periods.inputs[index])) != 0;
    port.open.store(true);
}

void JackDevices::openOutput(std::size_t index)
{
    OutputPort& port = *ports.outputs()[index];
    if (index != SYNTHESIZER) port.couldNotOpen = join(port, wireOf(port, periods.outputs[index])) != 0;
    if (!port.couldNotOpen && periods.waitUntilSilent(index, index + 1)) port.open();
}

void JackDevices::enableInput(std::size_t index, bool enabled)
{
    InputPort& port = *ports.inputs()[index];
    port.enabled = enabled;
    jack_port_t* own = periods.inputs[index];
    if (own == nullptr || periods.died.load()) return;
    if (enabled) {
        openInput(index);
        return;
    }
    port.open.store(false);
    if (standsForADevice(port)) jack_disconnect(client, port.device.address.c_str(), jack_port_name(own));
}

void JackDevices::enableOutput(std::size_t index, bool enabled)
{
    OutputPort& port = *ports.outputs()[index];
    port.enabled = enabled;
    jack_port_t* own = periods.outputs[index];
    if (client == nullptr || periods.died.load() || (index == SYNTHESIZER ? !isSynthesizerThere() : own == nullptr))
        return;
    if (enabled) {
        openOutput(index);
        return;
    }
    port.close();
    if (periods.waitUntilSilent(index, index + 1) && periods.waitFor(JackPeriods::TO_BE_HEARD) && own != nullptr &&
        standsForADevice(port))
        jack_disconnect(client, jack_port_name(own), port.device.address.c_str());
}

void JackDevices::connect(const std::string& from, const std::string& to)
{
    if (client == nullptr) throw std::runtime_error("there is no JACK server");
    const auto wired = [&](const std::string& port) { return port.find(':') != std::string::npos ? port : ":" + port; };
    const Wire wire{wired(from), wired(to)};
    for (const std::string& end : {wire.first, wire.second}) {
        const std::string port = JackWiring::isOwn(end) ? jack_get_client_name(client) + end : end;
        if (jack_port_by_name(client, port.c_str()) == nullptr)
            throw std::runtime_error("there is no port \"" + port + "\"");
    }
    if (wiring.join(client, wire) != 0)
        throw std::runtime_error(
            "the JACK server refuses (the first must be an output, the second an input of one kind)");
}
}  // namespace Host
