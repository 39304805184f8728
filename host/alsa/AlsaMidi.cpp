#include "host/alsa/AlsaMidi.h"

#include <RtMidi.h>
#include <alsa/asoundlib.h>

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

bool isSequencerAvailable()
{
    snd_lib_error_set_handler(printNothing);
    snd_seq_t* sequencer = nullptr;
    if (snd_seq_open(&sequencer, "default", SND_SEQ_OPEN_DUPLEX, SND_SEQ_NONBLOCK) < 0) return false;
    snd_seq_close(sequencer);
    return true;
}
}  // namespace

AlsaMidi::AlsaMidi(std::string name)
    : RtMidiDevices(RtMidi::LINUX_ALSA, std::move(name)), hasSequencer(isSequencerAvailable())
{
}

// Our own ports are in that list too: opening one counts as a change and leads to a scan with the same result.
bool AlsaMidi::haveChanged()
{
    std::vector<std::uint8_t> bytes;
    if (!hasSequencer || WholeFile::read(CLIENTS, LARGEST_LIST, bytes)) return false;
    const std::string before = std::exchange(clients, std::string(bytes.begin(), bytes.end()));
    return clients != before;
}

/// Without our own.
std::vector<MidiDevice> AlsaMidi::toDevices(const std::vector<std::string>& portNames) const
{
    std::vector<MidiDevice> devices;
    for (const std::string& name : portNames)
        devices.push_back(name.starts_with(getClientName() + ":") ? MidiDevice{}
                                                                  : MidiDevice{name, withoutAddress(name)});
    return devices;
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
