#include "host/system/OpenMidiSystem.h"

#include "host/alsa/AlsaMidi.h"
#include "host/alsa/AlsaSystem.h"
#include "host/jack/JackSystem.h"

namespace Host
{
std::unique_ptr<MidiSystem> openMidiSystem(const std::string& clientName, Ports& ports, Event& wake, const Sound& sound)
{
    if (auto client = openJackClient(clientName))
        return std::make_unique<JackSystem>(std::move(client), clientName, ports, wake, sound);
    return std::make_unique<AlsaSystem>(std::make_unique<AlsaMidi>(clientName), ports, sound);
}
}  // namespace Host
