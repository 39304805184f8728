#pragma once

#include <array>
#include <atomic>
#include <functional>
#include <memory>
#include <mutex>
#include <string>

#include "host/alsa/MidiDevices.h"
#include "host/devices/MidiSystem.h"
#include "host/synthesizer/SoundCard.h"
#include "platform/Event.h"
#include "platform/Thread.h"

namespace Host
{
/// The host without a graph: the devices of the ALSA sequencer with two virtual ports to patch freely ("Orvane In",
/// "Orvane Out"), and the built-in synthesizer on the system's sound output. Either may be missing, and so may both.
/// One thread sends, so that no device is ever waited for by the clock.
class AlsaSystem final : public MidiSystem
{
public:
    AlsaSystem(std::unique_ptr<MidiDevices> allDevices, Ports& allPorts);
    ~AlsaSystem() override;

    std::string name() const override { return devices->isPossible() ? "ALSA" : "none"; }
    std::string description() const override;
    void listen(Listener newListener) override;
    void stopListening() override;
    void startClock(Clock& songClock) override;
    void deliver() override { sendAgain.set(); }
    bool refresh() override;
    void enableInput(std::size_t index, bool enabled) override;
    void enableOutput(std::size_t index, bool enabled) override;
    void connect(const std::string& from, const std::string& to) override;
    void close() override;

private:
    void addSynthesizer();
    bool followDevices();
    void addInput(std::size_t index);
    void removeInput(std::size_t index);
    void addOutput(std::size_t index);
    void removeOutput(std::size_t index);
    void openInput(std::size_t index);
    void openOutput(std::size_t index);
    void hear(std::size_t input, const ShortMessage& message);
    void run();
    void deliverAll();
    bool sound(std::size_t output, const ShortMessage& message);
    bool isThere(std::size_t output) const;
    void waitUntilSilent(std::size_t firstOutput, std::size_t endOutput);

    Ports& ports;
    const std::unique_ptr<MidiDevices> devices;
    std::unique_ptr<SoundCard> soundCard;  // null if none opens
    std::array<std::unique_ptr<MidiSource>, Ports::MOST> sources;

    std::mutex sending;  // guards `sinks` between the sender and the control thread
    std::array<std::unique_ptr<MidiSink>, Ports::MOST> sinks;  // the synthesizer, output 0, has none

    std::mutex listening;  // guards these two among the devices' threads
    Listener listener;
    Clock* clock = nullptr;

    std::atomic<bool> stopping{false};
    Event sendAgain;
    Thread sender;
};
}  // namespace Host
