#include "host/alsa/AlsaMidi.h"

#include <alsa/asoundlib.h>

namespace Host
{
namespace
{
// A plain variadic function, as ALSA wants it.
void sayNothing(const char*, int, const char*, int, const char*, ...) {}

void ignoreError(RtMidiError::Type, const std::string&, void*) {}

template <class Midi>
std::unique_ptr<Midi> makeMidi(const std::string& clientName)
{
    auto midi = std::make_unique<Midi>(RtMidi::LINUX_ALSA, clientName);
    midi->setErrorCallback(ignoreError);
    return midi;
}

/// RtMidi throws from its constructors and, without an error callback, from everything else.
template <class Midi>
bool openDevice(std::unique_ptr<Midi>& midi, const AlsaDevice& device, const std::string& clientName)
{
    try {
        midi = makeMidi<Midi>(clientName);
        if (device.number == AlsaDevice::VIRTUAL) {
            midi->openVirtualPort(device.name);
            return true;
        }
        midi->openPort(device.number, device.name);
        return midi->isPortOpen();
    } catch (const RtMidiError&) {
        midi.reset();
        return false;
    }
}

template <class Midi>
std::vector<AlsaDevice> findDevices(const std::string& clientName)
{
    std::vector<AlsaDevice> devices;
    try {
        const auto midi = makeMidi<Midi>(clientName);
        const unsigned int count = midi->getPortCount();
        for (unsigned int number = 0; number < count; ++number)
            devices.push_back({number, withoutAddress(midi->getPortName(number))});
    } catch (const RtMidiError&) {
        // A sequencer that went away: no devices.
    }
    return devices;
}
}  // namespace

bool alsaSequencerAnswers()
{
    snd_lib_error_set_handler(sayNothing);
    snd_seq_t* sequencer = nullptr;
    if (snd_seq_open(&sequencer, "default", SND_SEQ_OPEN_DUPLEX, SND_SEQ_NONBLOCK) < 0) return false;
    snd_seq_close(sequencer);
    return true;
}

std::vector<AlsaDevice> findAlsaInputs(const std::string& clientName) { return findDevices<RtMidiIn>(clientName); }

std::vector<AlsaDevice> findAlsaOutputs(const std::string& clientName) { return findDevices<RtMidiOut>(clientName); }

std::string withoutAddress(const std::string& name)
{
    const auto blank = name.rfind(' ');
    if (blank == std::string::npos || blank == 0) return name;
    const std::string address = name.substr(blank + 1);
    const bool isAddress =
        address.find(':') != std::string::npos && address.find_first_not_of("0123456789:") == std::string::npos;
    return isAddress ? name.substr(0, blank) : name;
}

AlsaInput::AlsaInput(AlsaDevice from, std::string client, Arrived whenArrived)
    : device(std::move(from)), clientName(std::move(client)), arrived(std::move(whenArrived))
{
}

bool AlsaInput::open()
{
    if (!openDevice(midi, device, clientName)) return false;
    midi->ignoreTypes(true, false, true);  // system exclusive and active sensing, not timing ticks
    midi->setCallback(hear, this);
    return true;
}

void AlsaInput::hear(double, std::vector<unsigned char>* bytes, void* self)
{
    const auto message = readShortMessage(*bytes);
    if (message) static_cast<AlsaInput*>(self)->arrived(*message);
}

bool AlsaOutput::open() { return openDevice(midi, device, clientName); }

void AlsaOutput::send(const ShortMessage& message)
{
    try {
        if (midi) midi->sendMessage(message.bytes.data(), message.size);
    } catch (const RtMidiError&) {
        // The device went away; its port says so after the next scan.
    }
}
}  // namespace Host
