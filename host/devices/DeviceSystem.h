#pragma once

#include <array>
#include <atomic>
#include <functional>
#include <memory>
#include <string>

#include "host/devices/MidiDevices.h"
#include "host/devices/MidiSystem.h"
#include "host/synthesizer/SoundOutput.h"
#include "platform/Event.h"
#include "platform/Mutex.h"
#include "platform/Thread.h"

namespace Host
{
/// The host without a graph: the devices of the machine, two virtual ports that the user connects ("Orvane In", "Orvane
/// Out") where there are such ports, and the built-in synthesizer on the system's sound output. The devices, the sound
/// output or both may be missing. A thread of its own sends, so that the clock never waits for a device.
class DeviceSystem final : public MidiSystem
{
public:
    /// Without `openSound` there is no built-in synthesizer, and the devices have the numbers from 0.
    DeviceSystem(std::unique_ptr<MidiDevices> allDevices, Ports& allPorts, OpenSoundOutput openSound,
                 const Sound& first = {});
    ~DeviceSystem() override;

    std::string name() const override { return devices->isAvailable() ? devices->name() : "none"; }
    std::string description() const override;
    std::string trouble() const override;
    void listen(InputReceiver& newReceiver) override;
    void stopListening() override;
    void startClock(Clock& songClock) override;
    void setSound(const Sound& newSound) override;
    void deliver() override { messagesWait.set(); }
    bool refresh() override;
    void enableInput(std::size_t index, bool enabled) override;
    void enableOutput(std::size_t index, bool enabled) override;
    void connect(const std::string& from, const std::string& to) override;
    void close() override;

private:
    void addSynthesizer(const Sound& first);
    bool updateDevices();
    void addInput(std::size_t index);
    void removeInput(std::size_t index);
    void addOutput(std::size_t index);
    void removeOutput(std::size_t index);
    void openInput(std::size_t index);
    void openOutput(std::size_t index);
    void receive(std::size_t input, const ShortMessage& message);
    void runSender();
    void deliverAll();
    bool isSynthesizer(std::size_t output) const;
    bool isOpen(std::size_t output) const REQUIRES(sending);
    void waitUntilClosed(std::size_t firstOutput, std::size_t endOutput);

    Ports& ports;
    const std::unique_ptr<MidiDevices> devices;
    const OpenSoundOutput openSoundOutput;
    std::unique_ptr<SoundOutput> soundOutput;  // null if none opens
    std::array<std::unique_ptr<MidiSource>, Ports::MOST> sources;

    // Shared by the sender and the control thread; the synthesizer, output 0, has no sink
    Mutex sending;
    std::array<std::unique_ptr<MidiSink>, Ports::MOST> sinks GUARDED_BY(sending);

    // Shared by the threads of the devices and the control thread
    Mutex receiving;
    InputReceiver* receiver GUARDED_BY(receiving) = nullptr;
    Clock* clock GUARDED_BY(receiving) = nullptr;

    std::atomic<bool> stopping{false};
    Event messagesWait;
    Thread sender;
};
}  // namespace Host
