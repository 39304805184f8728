#pragma once

#include <atomic>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "host/alsa/AlsaMidi.h"
#include "host/synthesizer/SoundCard.h"
#include "host/system/MidiSystem.h"
#include "platform/Event.h"
#include "platform/Thread.h"

namespace Host
{
/// The host without a graph: the devices of the ALSA sequencer through RtMidi with two virtual ports to patch freely
/// ("Orvane In", "Orvane Out"), and the built-in synthesizer on the system's sound output. Either may be missing, and
/// so may both. One thread sends, so that no device is ever waited for by the clock.
class AlsaSystem final : public MidiSystem
{
public:
    AlsaSystem(const std::string& clientName, Ports& allPorts);
    ~AlsaSystem() override;

    std::string name() const override { return hasSequencer ? "ALSA" : "none"; }
    std::string description() const override;
    void listen(Listener newListener) override;
    void stopListening() override;
    void startClock(Clock& songClock) override;
    void deliver() override { sendAgain.set(); }
    void enableInput(std::size_t index, bool enabled) override;
    void enableOutput(std::size_t index, bool enabled) override;
    void connect(const std::string& from, const std::string& to) override;
    void close() override;

private:
    void addSynthesizer();
    void addInput(const AlsaDevice& device, const std::string& clientName);
    void addOutput(const AlsaDevice& device, const std::string& clientName);
    void hear(std::size_t input, const ShortMessage& message);
    void run();
    void deliverAll();
    bool sound(std::size_t output, const ShortMessage& message);
    void waitUntilSilent();

    Ports& ports;
    const bool hasSequencer;
    std::unique_ptr<SoundCard> soundCard;  // null if none opens
    std::vector<std::unique_ptr<AlsaInput>> inputs;
    std::vector<std::unique_ptr<AlsaOutput>> outputs;  // without the synthesizer: output 1 and up

    std::mutex listening;  // guards these two among RtMidi's threads
    Listener listener;
    Clock* clock = nullptr;

    std::atomic<bool> stopping{false};
    Event sendAgain;
    Thread sender;
};
}  // namespace Host
