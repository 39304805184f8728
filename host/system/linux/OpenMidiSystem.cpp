#include "host/system/OpenMidiSystem.h"

#include "host/alsa/AlsaMidi.h"
#include "host/devices/DeviceSystem.h"
#include "host/jack/JackSystem.h"
#include "host/synthesizer/SoundCard.h"
#include "host/system/ClientName.h"

namespace Host
{
std::unique_ptr<MidiSystem> openMidiSystem(const std::string& clientName, Ports& ports, Event& wake, const Sound& sound)
{
    if (auto client = openJackClient(clientName))
        return std::make_unique<JackSystem>(std::move(client), clientName, ports, wake, sound);
    const auto openSoundCard = [](const Sound& first, std::vector<std::string>& news) {
        return std::make_unique<SoundCard>(first, news);
    };
    return std::make_unique<DeviceSystem>(std::make_unique<AlsaMidi>(clientName), ports, openSoundCard, sound);
}

std::string firstOutputName() { return SYNTHESIZER_NAME; }

std::size_t longestClientName() { return longestJackClientName(); }
}  // namespace Host
