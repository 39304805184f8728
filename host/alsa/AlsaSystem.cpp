#include "host/alsa/AlsaSystem.h"

#include <algorithm>
#include <chrono>
#include <stdexcept>
#include <thread>

#include "platform/Clock.h"

namespace Host
{
using namespace std::chrono_literals;

namespace
{
constexpr auto LONGEST_WAIT = 2s;
constexpr std::size_t SYNTHESIZER = 0;

const MidiDevice SYNTHESIZER_DEVICE{":synthesizer", SYNTHESIZER_NAME};
const MidiDevice FREE_INPUT{":in", "Orvane In"};
const MidiDevice FREE_OUTPUT{":out", "Orvane Out"};
}  // namespace

AlsaSystem::AlsaSystem(std::unique_ptr<MidiDevices> allDevices, Ports& allPorts)
    : ports(allPorts), devices(std::move(allDevices))
{
    addSynthesizer();
    sender.start("orvane outputs", [this] { run(); });
    if (!devices->isPossible()) news.push_back("There is no JACK server and no ALSA sequencer, so no MIDI ports.");
    devices->haveChanged();  // whatever comes from here on is a change
    followDevices();
}

AlsaSystem::~AlsaSystem() { close(); }

std::string AlsaSystem::description() const
{
    return std::string(devices->isPossible() ? "the ALSA sequencer" : "no MIDI ports") +
           (soundCard ? ", sound output of the system" : ", no sound output");
}

void AlsaSystem::addSynthesizer()
{
    if (ports.outputs().size() == 0) ports.addOutput(SYNTHESIZER_NAME);
    ports.outputs()[SYNTHESIZER]->found = false;  // as every device before the first look
    try {
        soundCard = std::make_unique<SoundCard>();
    } catch (const std::runtime_error& reason) {
        news.push_back("The built-in synthesizer is silent: " + std::string(reason.what()) + ".");
    }
}

// --- devices come and go

bool AlsaSystem::refresh() { return devices->haveChanged() && followDevices(); }

bool AlsaSystem::followDevices()
{
    bool changed = false;
    const auto andNote = [&](void (AlsaSystem::*follow)(std::size_t)) {
        return [this, &changed, follow](std::size_t index) {
            (this->*follow)(index);
            changed = true;
        };
    };
    auto heard = devices->findSources();
    auto hearing = devices->findSinks();
    if (devices->isPossible()) {
        heard.insert(heard.begin(), FREE_INPUT);
        hearing.insert(hearing.begin(), FREE_OUTPUT);
    }
    hearing.insert(hearing.begin(), SYNTHESIZER_DEVICE);
    ports.settleInputs(heard, andNote(&AlsaSystem::removeInput), andNote(&AlsaSystem::addInput));
    ports.settleOutputs(hearing, andNote(&AlsaSystem::removeOutput), andNote(&AlsaSystem::addOutput));
    return changed;
}

void AlsaSystem::addInput(std::size_t index)
{
    if (ports.inputs()[index]->enabled) openInput(index);
}

void AlsaSystem::removeInput(std::size_t index)
{
    ports.inputs()[index]->open.store(false);
    ports.inputs()[index]->couldNotOpen = false;
    sources[index].reset();
}

void AlsaSystem::addOutput(std::size_t index)
{
    if (ports.outputs()[index]->enabled) openOutput(index);
}

void AlsaSystem::removeOutput(std::size_t index)
{
    OutputPort& port = *ports.outputs()[index];
    port.close();
    port.couldNotOpen = false;
    const std::lock_guard lock(sending);
    sinks[index].reset();
    port.lose();
}

void AlsaSystem::openInput(std::size_t index)
{
    InputPort& port = *ports.inputs()[index];
    port.open.store(true);
    sources[index] =
        devices->openSource(port.device, [this, index](const ShortMessage& message) { hear(index, message); });
    port.couldNotOpen = sources[index] == nullptr;
}

/// What sounded there when it was closed is released first, so that it is on the way before anything new.
void AlsaSystem::openOutput(std::size_t index)
{
    OutputPort& port = *ports.outputs()[index];
    if (index != SYNTHESIZER) {
        auto sink = devices->openSink(port.device);
        const std::lock_guard lock(sending);
        sinks[index] = std::move(sink);
    }
    port.couldNotOpen = !isThere(index);
    if (port.couldNotOpen) return;
    waitUntilSilent(index, index + 1);
    port.open();
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
    InputPort& port = *ports.inputs()[input];
    if (!port.open.load(std::memory_order_relaxed)) return;
    const bool passes = !staysInHost(message) && port.limit.passes(message, monotonicMilliseconds());
    const std::lock_guard lock(listening);
    if (clock != nullptr) clock->hearNow(static_cast<int>(input), message);
    if (listener && passes) listener(toInputEvent(message, static_cast<int>(input)));
}

void AlsaSystem::enableInput(std::size_t index, bool enabled)
{
    InputPort& port = *ports.inputs()[index];
    port.enabled = enabled;
    if (!port.found) return;
    if (enabled)
        openInput(index);
    else
        removeInput(index);
}

void AlsaSystem::connect(const std::string&, const std::string&)
{
    throw std::runtime_error("there is no JACK server");
}

// --- out

void AlsaSystem::enableOutput(std::size_t index, bool enabled)
{
    OutputPort& port = *ports.outputs()[index];
    port.enabled = enabled;
    if (!port.found) return;
    if (enabled) {
        openOutput(index);
        return;
    }
    port.close();
    waitUntilSilent(index, index + 1);
    removeOutput(index);
}

void AlsaSystem::run()
{
    requestRealTimePriority(RealTimeStep::backend);
    while (!stopping.load()) {
        sendAgain.wait();
        deliverAll();
    }
}

void AlsaSystem::deliverAll()
{
    const std::lock_guard lock(sending);
    for (std::size_t index = 0; index < ports.outputs().size(); ++index)
        if (isThere(index))
            ports.outputs()[index]->deliver(
                0, [&](const ShortMessage& message, std::uint32_t) { return sound(index, message); });
}

bool AlsaSystem::isThere(std::size_t output) const
{
    return output == SYNTHESIZER ? soundCard != nullptr : sinks[output] != nullptr;
}

bool AlsaSystem::sound(std::size_t output, const ShortMessage& message)
{
    if (output == SYNTHESIZER)
        soundCard->play(message);
    else
        sinks[output]->send(message);
    return true;
}

void AlsaSystem::waitUntilSilent(std::size_t first, std::size_t end)
{
    const auto isClosing = [&](std::size_t index) { return isThere(index) && ports.outputs()[index]->isClosing(); };
    const auto giveUp = std::chrono::steady_clock::now() + LONGEST_WAIT;
    while (std::chrono::steady_clock::now() < giveUp) {
        while (first < end && !isClosing(first)) ++first;
        if (first == end) return;
        sendAgain.set();
        std::this_thread::sleep_for(1ms);
    }
}

void AlsaSystem::close()
{
    if (!sender.isStarted()) return;
    stopListening();
    for (const auto& port : ports.outputs()) port->close();
    waitUntilSilent(0, ports.outputs().size());
    stopping.store(true);
    sendAgain.set();
    sender.join();
    for (auto& sink : sinks) sink.reset();
    for (auto& source : sources) source.reset();
    soundCard.reset();
}
}  // namespace Host
