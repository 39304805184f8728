#include "host/alsa/AlsaSystem.h"

#include <algorithm>
#include <chrono>
#include <stdexcept>
#include <thread>

#include "host/synthesizer/SoundFont.h"
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

AlsaSystem::AlsaSystem(std::unique_ptr<MidiDevices> allDevices, Ports& allPorts, const Sound& first)
    : ports(allPorts), devices(std::move(allDevices)), sound(first)
{
    addSynthesizer();
    sender.start("orvane outputs", [this] { runSender(); });
    if (!devices->isAvailable()) news.push_back("There is no JACK server and no ALSA sequencer, so no MIDI ports.");
    devices->haveChanged();  // changes count from here on
    updateDevices();
}

AlsaSystem::~AlsaSystem() { close(); }

std::string AlsaSystem::description() const
{
    return std::string(devices->isAvailable() ? "the ALSA sequencer" : "no MIDI ports") +
           (soundCard ? ", sound output of the system" : ", no sound output");
}

std::string AlsaSystem::trouble() const
{
    return soundCard ? "" : "no JACK server is running, and the system has no sound output";
}

void AlsaSystem::addSynthesizer()
{
    if (ports.outputs().size() == 0) ports.addOutput(SYNTHESIZER_NAME);
    ports.outputs()[SYNTHESIZER]->found = false;  // as every device before the first scan
    try {
        soundCard = std::make_unique<SoundCard>(
            [this] { return makeSynthesizer(sound, SoundCard::SAMPLE_RATE, SynthesizerUse::manyThreads, news); });
    } catch (const std::runtime_error& reason) {
        news.push_back("The built-in synthesizer is silent: " + std::string(reason.what()) + ".");
    }
}

void AlsaSystem::setSound(const Sound& newSound)
{
    const bool isOtherFont = newSound.soundFont != sound.soundFont;
    sound = newSound;
    if (!soundCard) return;
    soundCard->setSound(sound);
    if (!isOtherFont) return;
    auto next = makeNextSynthesizer(sound, SoundCard::SAMPLE_RATE, SynthesizerUse::manyThreads, news);
    if (!next) return;
    const MutexLock lock(sending);
    if (!soundCard->replace(std::move(next)))
        news.push_back("The built-in synthesizer is silent: the sound output cannot be opened again.");
}

// --- devices

bool AlsaSystem::refresh() { return devices->haveChanged() && updateDevices(); }

bool AlsaSystem::updateDevices()
{
    bool changed = false;
    const auto markChange = [&](void (AlsaSystem::*change)(std::size_t)) {
        return [this, &changed, change](std::size_t index) {
            (this->*change)(index);
            changed = true;
        };
    };
    auto foundSources = devices->findSources();
    auto foundSinks = devices->findSinks();
    if (devices->isAvailable()) {
        foundSources.insert(foundSources.begin(), FREE_INPUT);
        foundSinks.insert(foundSinks.begin(), FREE_OUTPUT);
    }
    foundSinks.insert(foundSinks.begin(), SYNTHESIZER_DEVICE);
    ports.assignInputs(foundSources, markChange(&AlsaSystem::removeInput), markChange(&AlsaSystem::addInput));
    ports.assignOutputs(foundSinks, markChange(&AlsaSystem::removeOutput), markChange(&AlsaSystem::addOutput));
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
    const MutexLock lock(sending);
    sinks[index].reset();
    port.unplug();
}

void AlsaSystem::openInput(std::size_t index)
{
    InputPort& port = *ports.inputs()[index];
    port.open.store(true);
    sources[index] =
        devices->openSource(port.device, [this, index](const ShortMessage& message) { receive(index, message); });
    port.couldNotOpen = sources[index] == nullptr;
}

/// Notes that sounded there when it was unplugged are ended first.
void AlsaSystem::openOutput(std::size_t index)
{
    OutputPort& port = *ports.outputs()[index];
    auto sink = index == SYNTHESIZER ? nullptr : devices->openSink(port.device);
    {
        const MutexLock lock(sending);
        sinks[index] = std::move(sink);
        port.couldNotOpen = !isOpen(index);
    }
    if (port.couldNotOpen) return;
    waitUntilClosed(index, index + 1);
    port.open();
}

// --- in

void AlsaSystem::listen(InputReceiver& newReceiver)
{
    const MutexLock lock(receiving);
    receiver = &newReceiver;
}

void AlsaSystem::startClock(Clock& songClock)
{
    songClock.startOnThread();
    const MutexLock lock(receiving);
    clock = &songClock;
}

void AlsaSystem::stopListening()
{
    const MutexLock lock(receiving);
    receiver = nullptr;
}

void AlsaSystem::receive(std::size_t input, const ShortMessage& message)
{
    InputPort& port = *ports.inputs()[input];
    if (!port.open.load(std::memory_order_relaxed)) return;
    const bool passes = !staysInHost(message) && port.limit.passes(message, monotonicMilliseconds());
    const MutexLock lock(receiving);
    if (clock != nullptr) clock->receive(static_cast<int>(input), message);
    if (receiver == nullptr || !passes) return;
    const auto event = toInputEvent(message, static_cast<int>(input));
    if (receiver->play(event))
        messagesWait.set();
    else
        receiver->post(event);
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
    waitUntilClosed(index, index + 1);
    removeOutput(index);
}

void AlsaSystem::runSender()
{
    requestRealTimePriority(RealTimeStep::backend);
    while (!stopping.load()) {
        messagesWait.wait();
        deliverAll();
    }
}

void AlsaSystem::deliverAll()
{
    const MutexLock lock(sending);
    for (std::size_t index = 0; index < ports.outputs().size(); ++index) {
        if (!isOpen(index)) continue;
        MidiSink* const sink = sinks[index].get();
        ports.outputs()[index]->deliver(0, [&](const ShortMessage& message, std::uint32_t) {
            if (sink != nullptr)
                sink->send(message);
            else
                soundCard->play(message);
            return true;
        });
    }
}

bool AlsaSystem::isOpen(std::size_t output) const
{
    return output == SYNTHESIZER ? soundCard != nullptr : sinks[output] != nullptr;
}

void AlsaSystem::waitUntilClosed(std::size_t first, std::size_t end)
{
    const auto isClosing = [&](std::size_t index) {
        const MutexLock lock(sending);
        return isOpen(index) && ports.outputs()[index]->isClosing();
    };
    const auto giveUp = std::chrono::steady_clock::now() + LONGEST_WAIT;
    while (std::chrono::steady_clock::now() < giveUp) {
        while (first < end && !isClosing(first)) ++first;
        if (first == end) return;
        messagesWait.set();
        std::this_thread::sleep_for(1ms);
    }
}

void AlsaSystem::close()
{
    if (!sender.isStarted()) return;
    stopListening();
    for (const auto& port : ports.outputs()) port->close();
    waitUntilClosed(0, ports.outputs().size());
    stopping.store(true);
    messagesWait.set();
    sender.join();
    {
        const MutexLock lock(sending);
        for (auto& sink : sinks) sink.reset();
    }
    for (auto& source : sources) source.reset();
    soundCard.reset();
}
}  // namespace Host
