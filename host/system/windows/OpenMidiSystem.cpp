#include "host/system/OpenMidiSystem.h"

#include "host/devices/DeviceSystem.h"
#include "host/system/ClientName.h"
#include "host/winmm/WinmmMidi.h"

namespace Host
{
std::unique_ptr<MidiSystem> openMidiSystem(const std::string& clientName, Ports& ports, Event&, const Sound& sound)
{
    return std::make_unique<DeviceSystem>(std::make_unique<WinmmMidi>(clientName), ports, nullptr, sound);
}

std::string firstOutputName() { return {}; }

std::size_t longestClientName() { return 63; }
}  // namespace Host
