#include "host/rtmidi/RtMidiDevices.h"

#include <RtMidi.h>

#include <algorithm>
#include <utility>

namespace Host
{
namespace
{
void ignoreError(RtMidiError::Type, const std::string&, void*) {}

/// RtMidi throws from its constructors and, without an error callback, from all other functions.
template <class Midi>
std::unique_ptr<Midi> makeMidi(int api, const std::string& clientName)
{
    auto midi = std::make_unique<Midi>(static_cast<RtMidi::Api>(api), clientName);
    midi->setErrorCallback(ignoreError);
    return midi;
}

std::vector<std::string> portNames(RtMidi& midi)
{
    std::vector<std::string> names;
    const unsigned int count = midi.getPortCount();
    for (unsigned int number = 0; number < count; ++number) names.push_back(midi.getPortName(number));
    return names;
}

class Source final : public MidiSource
{
public:
    Source(std::unique_ptr<RtMidiIn> openMidi, MidiDevices::Arrived whenArrived)
        : arrived(std::move(whenArrived)), midi(std::move(openMidi))
    {
        midi->ignoreTypes(true, false, true);  // system exclusive and active sensing, not timing ticks
        midi->setCallback(receive, this);
    }

private:
    static void receive(double, std::vector<unsigned char>* bytes, void* self)
    {
        const auto message = readShortMessage(*bytes);
        if (message) static_cast<Source*>(self)->arrived(*message);
    }

    const MidiDevices::Arrived arrived;
    const std::unique_ptr<RtMidiIn> midi;
};

class Sink final : public MidiSink
{
public:
    explicit Sink(std::unique_ptr<RtMidiOut> openMidi) : midi(std::move(openMidi)) {}

    void send(const ShortMessage& message) override
    {
        try {
            midi->sendMessage(message.bytes.data(), message.size);
        } catch (const RtMidiError&) {
            // The device was unplugged; the next scan marks its port.
        }
    }

private:
    const std::unique_ptr<RtMidiOut> midi;
};
}  // namespace

/// The calls of RtMidi that input and output have in common.
template <class Midi>
struct RtMidiDevices::Access {
    static std::vector<MidiDevice> find(const RtMidiDevices& self)
    {
        try {
            const auto midi = makeMidi<Midi>(self.api, self.clientName);
            auto devices = self.toDevices(portNames(*midi));
            std::erase_if(devices, [](const MidiDevice& device) { return device.address.empty(); });
            return devices;
        } catch (const RtMidiError&) {
            return {};  // the system is gone, and so are its devices
        }
    }

    static std::unique_ptr<Midi> open(const RtMidiDevices& self, const MidiDevice& device)
    {
        try {
            auto midi = makeMidi<Midi>(self.api, self.clientName);
            return connect(self, *midi, device) ? std::move(midi) : nullptr;
        } catch (const RtMidiError&) {
            return nullptr;
        }
    }

    /// False if the device of that address is gone.
    static bool connect(const RtMidiDevices& self, Midi& midi, const MidiDevice& device)
    {
        if (device.address.starts_with(':')) {
            midi.openVirtualPort(device.name);
            return true;
        }
        const auto devices = self.toDevices(portNames(midi));
        const auto found = std::ranges::find(devices, device.address, &MidiDevice::address);
        if (found == devices.end()) return false;
        midi.openPort(static_cast<unsigned int>(found - devices.begin()), device.name);
        return midi.isPortOpen();
    }
};

std::vector<MidiDevice> RtMidiDevices::findSources()
{
    return hasSources() ? Access<RtMidiIn>::find(*this) : std::vector<MidiDevice>();
}

std::vector<MidiDevice> RtMidiDevices::findSinks()
{
    return hasSinks() ? Access<RtMidiOut>::find(*this) : std::vector<MidiDevice>();
}

std::unique_ptr<MidiSource> RtMidiDevices::openSource(const MidiDevice& device, Arrived arrived)
{
    auto midi = Access<RtMidiIn>::open(*this, device);
    return midi ? std::make_unique<Source>(std::move(midi), std::move(arrived)) : nullptr;
}

std::unique_ptr<MidiSink> RtMidiDevices::openSink(const MidiDevice& device)
{
    auto midi = Access<RtMidiOut>::open(*this, device);
    return midi ? std::make_unique<Sink>(std::move(midi)) : nullptr;
}
}  // namespace Host
