#include "host/system/MidiSystem.h"

#include "host/alsa/AlsaSystem.h"
#include "host/jack/JackSystem.h"

namespace Host
{
std::unique_ptr<MidiSystem> openMidiSystem(const std::string& clientName, Ports& ports, Event& died)
{
    std::unique_ptr<MidiSystem> system;
    if (auto client = openJackClient(clientName))
        system = std::make_unique<JackSystem>(std::move(client), ports, died);
    else
        system = std::make_unique<AlsaSystem>(clientName, ports);
    if (ports.leftOut() > 0)
        system->complaints.push_back("There are more MIDI ports than the " + std::to_string(Ports::MOST) +
                                     " that can be used each way; " + std::to_string(ports.leftOut()) +
                                     " are left out.");
    return system;
}
}  // namespace Host
