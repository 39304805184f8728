#include "host/alsa/AlsaMidi.h"

#include <alsa/asoundlib.h>
#include <rtmidi/RtMidi.h>

#include <cstdint>
#include <utility>

#include "platform/WholeFile.h"

namespace Host
{
namespace
{
constexpr const char* CLIENTS = "/proc/asound/seq/clients";
constexpr std::size_t LARGEST_LIST = 1u << 20;

// ALSA requires a variadic function.
void printNothing(const char*, int, const char*, int, const char*, ...) {}

void ignoreError(RtMidiError::Type, const std::string&, void*) {}

bool isSequencerAvailable()
{
    snd_lib_error_set_handler(printNothing);
    snd_seq_t* sequencer = nullptr;
    if (snd_seq_open(&sequencer, "default", SND_SEQ_OPEN_DUPLEX, SND_SEQ_NONBLOCK) < 0) return false;
    snd_seq_close(sequencer);
    return true;
}

template <class Midi>
std::unique_ptr<Midi> makeMidi(const std::string& clientName)
{
    auto midi = std::make_unique<Midi>(RtMidi::LINUX_ALSA, clientName);
    midi->setErrorCallback(ignoreError);
    return midi;
}

/// Connects to the device of that address; false if it is gone.
bool openPort(RtMidi& midi, const MidiDevice& device)
{
    if (device.address.starts_with(':')) {
        midi.openVirtualPort(device.name);
        return true;
    }
    for (unsigned int number = 0; number < midi.getPortCount(); ++number) {
        if (midi.getPortName(number) != device.address) continue;
        midi.openPort(number, device.name);
        return midi.isPortOpen();
    }
    return false;
}

/// RtMidi throws from its constructors and, without an error callback, from all other functions.
template <class Midi>
std::unique_ptr<Midi> openMidi(const MidiDevice& device, const std::string& clientName)
{
    try {
        auto midi = makeMidi<Midi>(clientName);
        return openPort(*midi, device) ? std::move(midi) : nullptr;
    } catch (const RtMidiError&) {
        return nullptr;
    }
}

template <class Midi>
std::vector<MidiDevice> findDevices(const std::string& clientName)
{
    std::vector<MidiDevice> devices;
    try {
        const auto midi = makeMidi<Midi>(clientName);
        const unsigned int count = midi->getPortCount();
        for (unsigned int number = 0; number < count; ++number) {
            const std::string name = midi->getPortName(number);
            if (!name.starts_with(clientName + ":")) devices.push_back({name, withoutAddress(name)});
        }
    } catch (const RtMidiError&) {
        // The sequencer is gone, and so are its devices.
    }
    return devices;
}

class AlsaSource final : public MidiSource
{
public:
    AlsaSource(std::unique_ptr<RtMidiIn> openMidi, MidiDevices::Arrived whenArrived)
        : arrived(std::move(whenArrived)), midi(std::move(openMidi))
    {
        midi->ignoreTypes(true, false, true);  // system exclusive and active sensing, not timing ticks
        midi->setCallback(receive, this);
    }

private:
    static void receive(double, std::vector<unsigned char>* bytes, void* self)
    {
        const auto message = readShortMessage(*bytes);
        if (message) static_cast<AlsaSource*>(self)->arrived(*message);
    }

    const MidiDevices::Arrived arrived;
    const std::unique_ptr<RtMidiIn> midi;
};

class AlsaSink final : public MidiSink
{
public:
    explicit AlsaSink(std::unique_ptr<RtMidiOut> openMidi) : midi(std::move(openMidi)) {}

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

AlsaMidi::AlsaMidi(std::string name) : clientName(std::move(name)), hasSequencer(isSequencerAvailable()) {}

// Our own ports are in that list too: opening one counts as a change and leads to a scan with the same result.
bool AlsaMidi::haveChanged()
{
    std::vector<std::uint8_t> bytes;
    if (!hasSequencer || WholeFile::read(CLIENTS, LARGEST_LIST, bytes)) return false;
    const std::string before = std::exchange(clients, std::string(bytes.begin(), bytes.end()));
    return clients != before;
}

// Without the sequencer RtMidi would say so on standard error, again and again.
std::vector<MidiDevice> AlsaMidi::findSources()
{
    return hasSequencer ? findDevices<RtMidiIn>(clientName) : std::vector<MidiDevice>();
}

std::vector<MidiDevice> AlsaMidi::findSinks()
{
    return hasSequencer ? findDevices<RtMidiOut>(clientName) : std::vector<MidiDevice>();
}

std::unique_ptr<MidiSource> AlsaMidi::openSource(const MidiDevice& device, Arrived arrived)
{
    auto midi = openMidi<RtMidiIn>(device, clientName);
    return midi ? std::make_unique<AlsaSource>(std::move(midi), std::move(arrived)) : nullptr;
}

std::unique_ptr<MidiSink> AlsaMidi::openSink(const MidiDevice& device)
{
    auto midi = openMidi<RtMidiOut>(device, clientName);
    return midi ? std::make_unique<AlsaSink>(std::move(midi)) : nullptr;
}

std::string withoutAddress(const std::string& name)
{
    const auto blank = name.rfind(' ');
    if (blank == std::string::npos || blank == 0) return name;
    const std::string address = name.substr(blank + 1);
    const bool isAddress =
        address.find(':') != std::string::npos && address.find_first_not_of("0123456789:") == std::string::npos;
    return isAddress ? name.substr(0, blank) : name;
}
}  // namespace Host
