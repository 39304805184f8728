#include "host/alsa/AlsaSystem.h"

#include <algorithm>
#include <chrono>
#include <stdexcept>
#include <thread>

namespace Host
{
using namespace std::chrono_literals;

namespace
{
constexpr auto LONGEST_WAIT = 2s;
}

AlsaSystem::AlsaSystem(const std::string& clientName, Ports& allPorts)
    : ports(allPorts), hasSequencer(alsaSequencerAnswers())
{
    addSynthesizer();
    if (hasSequencer) {
        const auto sources = findAlsaInputs(clientName);
        const auto sinks = findAlsaOutputs(clientName);
        addInput({AlsaDevice::VIRTUAL, "Orvane In"}, clientName);
        addOutput({AlsaDevice::VIRTUAL, "Orvane Out"}, clientName);
        for (const AlsaDevice& source : sources) addInput(source, clientName);
        for (const AlsaDevice& sink : sinks) addOutput(sink, clientName);
        // Only now: an open input is heard on another thread, and the lists stand still.
        for (std::size_t index = 0; index < inputs.size(); ++index) enableInput(index, true);
        for (std::size_t index = 0; index < outputs.size(); ++index) enableOutput(index + 1, true);
    } else {
        complaints.push_back("There is no JACK server and no ALSA sequencer, so no MIDI ports.");
    }
    sender.start("orvane outputs", [this] { run(); });
}

AlsaSystem::~AlsaSystem() { close(); }

std::string AlsaSystem::description() const
{
    return std::string(hasSequencer ? "the ALSA sequencer" : "no MIDI ports") +
           (soundCard ? ", sound output of the system" : ", no sound output");
}

// --- start

void AlsaSystem::addSynthesizer()
{
    OutputPort* port = ports.addOutput(SYNTHESIZER_NAME);
    try {
        soundCard = std::make_unique<SoundCard>();
        port->open();
    } catch (const std::runtime_error& reason) {
        port->couldNotOpen = true;
        complaints.push_back("The built-in synthesizer is silent: " + std::string(reason.what()) + ".");
    }
}

void AlsaSystem::addInput(const AlsaDevice& device, const std::string& clientName)
{
    if (ports.addInput(device.name) == nullptr) return;
    const std::size_t index = inputs.size();
    inputs.push_back(std::make_unique<AlsaInput>(device, clientName,
                                                 [this, index](const ShortMessage& message) { hear(index, message); }));
}

void AlsaSystem::addOutput(const AlsaDevice& device, const std::string& clientName)
{
    if (ports.addOutput(device.name) != nullptr) outputs.push_back(std::make_unique<AlsaOutput>(device, clientName));
}

// --- in

void AlsaSystem::listen(Listener newListener)
{
    const std::lock_guard lock(listening);
    listener = std::move(newListener);
}

void AlsaSystem::startClock(Clock& songClock)
{
    songClock.startOnThread();
    const std::lock_guard lock(listening);
    clock = &songClock;
}

void AlsaSystem::stopListening() { listen(nullptr); }

void AlsaSystem::hear(std::size_t input, const ShortMessage& message)
{
    if (!ports.inputs()[input]->open.load(std::memory_order_relaxed)) return;
    const std::lock_guard lock(listening);
    if (clock != nullptr) clock->hearNow(static_cast<int>(input), message);
    if (listener && !staysInHost(message)) listener(toInputEvent(message, static_cast<int>(input)));
}

void AlsaSystem::enableInput(std::size_t index, bool enabled)
{
    InputPort& port = *ports.inputs()[index];
    port.enabled = enabled;
    port.open.store(enabled);
    if (enabled)
        port.couldNotOpen = !inputs[index]->open();
    else
        inputs[index]->close();
}

void AlsaSystem::connect(const std::string&, const std::string&)
{
    throw std::runtime_error("there is no JACK server");
}

// --- out

void AlsaSystem::enableOutput(std::size_t index, bool enabled)
{
    OutputPort& port = *ports.outputs()[index];
    AlsaOutput* device = index > 0 ? outputs[index - 1].get() : nullptr;
    port.enabled = enabled;
    if (!enabled) {
        port.close();
        waitUntilSilent();
        if (device != nullptr) device->close();
        return;
    }
    if (device != nullptr) port.couldNotOpen = !device->open();
    if (!port.couldNotOpen) port.open();
}

void AlsaSystem::run()
{
    requestRealTimePriority(1);
    while (!stopping.load()) {
        sendAgain.wait();
        deliverAll();
    }
}

void AlsaSystem::deliverAll()
{
    for (std::size_t index = 0; index < ports.outputs().size(); ++index)
        ports.outputs()[index]->deliver(
            0, [&](const ShortMessage& message, std::uint32_t) { return sound(index, message); });
}

bool AlsaSystem::sound(std::size_t output, const ShortMessage& message)
{
    if (output > 0)
        outputs[output - 1]->send(message);
    else if (soundCard)
        soundCard->play(message);
    return true;
}

void AlsaSystem::waitUntilSilent()
{
    const auto giveUp = std::chrono::steady_clock::now() + LONGEST_WAIT;
    while (std::ranges::any_of(ports.outputs(), [](const auto& port) { return port->isClosing(); }) &&
           std::chrono::steady_clock::now() < giveUp) {
        sendAgain.set();
        std::this_thread::sleep_for(1ms);
    }
}

void AlsaSystem::close()
{
    if (!sender.isStarted()) return;
    stopListening();
    for (const auto& port : ports.outputs()) port->close();
    waitUntilSilent();
    stopping.store(true);
    sendAgain.set();
    sender.join();
    outputs.clear();
    inputs.clear();
    soundCard.reset();
}
}  // namespace Host
