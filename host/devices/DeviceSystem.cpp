#include "host/devices/DeviceSystem.h"

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

DeviceSystem::DeviceSystem(std::unique_ptr<MidiDevices> allDevices, Ports& allPorts, OpenSoundOutput openSound,
                           const Sound& first)
    : ports(allPorts), devices(std::move(allDevices)), openSoundOutput(std::move(openSound))
{
    if (openSoundOutput) addSynthesizer(first);
    sender.start("orvane outputs", [this] { runSender(); });
    if (!devices->isAvailable()) news.push_back(devices->whyUnavailable());
    devices->haveChanged();  // changes count from here on
    updateDevices();
}

DeviceSystem::~DeviceSystem() { close(); }

std::string DeviceSystem::description() const
{
    const std::string midi = devices->isAvailable() ? devices->description() : "no MIDI ports";
    if (!openSoundOutput) return midi;
    return midi + (soundOutput ? ", sound output of the system" : ", no sound output");
}

std::string DeviceSystem::trouble() const
{
    if (!openSoundOutput || soundOutput) return {};
    return "no JACK server is running, and the system has no sound output";
}

void DeviceSystem::addSynthesizer(const Sound& first)
{
    if (ports.outputs().size() == 0) ports.addOutput(SYNTHESIZER_NAME);
    ports.outputs()[SYNTHESIZER]->found = false;  // as every device before the first scan
    try {
        soundOutput = openSoundOutput(first, news);
    } catch (const std::runtime_error& reason) {
        news.push_back("The built-in synthesizer is silent: " + std::string(reason.what()) + ".");
    }
}

void DeviceSystem::setSound(const Sound& sound)
{
    if (soundOutput) soundOutput->setSound(sound, news);
}

// --- devices

bool DeviceSystem::refresh() { return devices->haveChanged() && updateDevices(); }

bool DeviceSystem::updateDevices()
{
    bool changed = false;
    const auto markChange = [&](void (DeviceSystem::*change)(std::size_t)) {
        return [this, &changed, change](std::size_t index) {
            (this->*change)(index);
            changed = true;
        };
    };
    auto foundSources = devices->findSources();
    auto foundSinks = devices->findSinks();
    if (devices->isAvailable() && devices->hasVirtualPorts()) {
        foundSources.insert(foundSources.begin(), FREE_INPUT);
        foundSinks.insert(foundSinks.begin(), FREE_OUTPUT);
    }
    if (openSoundOutput) foundSinks.insert(foundSinks.begin(), SYNTHESIZER_DEVICE);
    ports.assignInputs(foundSources, markChange(&DeviceSystem::removeInput), markChange(&DeviceSystem::addInput));
    ports.assignOutputs(foundSinks, markChange(&DeviceSystem::removeOutput), markChange(&DeviceSystem::addOutput));
    return changed;
}

void DeviceSystem::addInput(std::size_t index)
{
    if (ports.inputs()[index]->enabled) openInput(index);
}

void DeviceSystem::removeInput(std::size_t index)
{
    ports.inputs()[index]->open.store(false);
    ports.inputs()[index]->couldNotOpen = false;
    sources[index].reset();
}

void DeviceSystem::addOutput(std::size_t index)
{
    if (ports.outputs()[index]->enabled) openOutput(index);
}

void DeviceSystem::removeOutput(std::size_t index)
{
    OutputPort& port = *ports.outputs()[index];
    port.close();
    port.couldNotOpen = false;
    const MutexLock lock(sending);
    sinks[index].reset();
    port.unplug();
}

void DeviceSystem::openInput(std::size_t index)
{
    InputPort& port = *ports.inputs()[index];
    port.open.store(true);
    sources[index] =
        devices->openSource(port.device, [this, index](const ShortMessage& message) { receive(index, message); });
    port.couldNotOpen = sources[index] == nullptr;
}

/// Notes that sounded there when it was unplugged are ended first.
void DeviceSystem::openOutput(std::size_t index)
{
    OutputPort& port = *ports.outputs()[index];
    auto sink = isSynthesizer(index) ? nullptr : devices->openSink(port.device);
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

void DeviceSystem::listen(InputReceiver& newReceiver)
{
    const MutexLock lock(receiving);
    receiver = &newReceiver;
}

void DeviceSystem::startClock(Clock& songClock)
{
    songClock.startOnThread();
    const MutexLock lock(receiving);
    clock = &songClock;
}

void DeviceSystem::stopListening()
{
    const MutexLock lock(receiving);
    receiver = nullptr;
}

void DeviceSystem::receive(std::size_t input, const ShortMessage& message)
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

void DeviceSystem::enableInput(std::size_t index, bool enabled)
{
    InputPort& port = *ports.inputs()[index];
    port.enabled = enabled;
    if (!port.found) return;
    if (enabled)
        openInput(index);
    else
        removeInput(index);
}

void DeviceSystem::connect(const std::string&, const std::string&)
{
    throw std::runtime_error("there is no JACK server");
}

// --- out

void DeviceSystem::enableOutput(std::size_t index, bool enabled)
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

void DeviceSystem::runSender()
{
    requestRealTimePriority(RealTimeStep::backend);
    while (!stopping.load()) {
        messagesWait.wait();
        deliverAll();
    }
}

void DeviceSystem::deliverAll()
{
    const MutexLock lock(sending);
    for (std::size_t index = 0; index < ports.outputs().size(); ++index) {
        if (!isOpen(index)) continue;
        MidiSink* const sink = sinks[index].get();
        ports.outputs()[index]->deliver(0, [&](const ShortMessage& message, std::uint32_t) {
            if (sink != nullptr)
                sink->send(message);
            else
                soundOutput->play(message);
            return true;
        });
    }
}

bool DeviceSystem::isSynthesizer(std::size_t output) const { return openSoundOutput && output == SYNTHESIZER; }

bool DeviceSystem::isOpen(std::size_t output) const
{
    return isSynthesizer(output) ? soundOutput != nullptr : sinks[output] != nullptr;
}

void DeviceSystem::waitUntilClosed(std::size_t first, std::size_t end)
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

void DeviceSystem::close()
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
    soundOutput.reset();
}
}  // namespace Host
