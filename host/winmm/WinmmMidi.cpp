#include "host/winmm/WinmmMidi.h"

#include <RtMidi.h>
#include <windows.h>

#include <mmsystem.h>

#include <algorithm>
#include <utility>

namespace Host
{
namespace
{
/// The names of all devices, inputs and outputs apart.
std::vector<std::wstring> findNames()
{
    std::vector<std::wstring> names;
    for (UINT number = 0; number < midiInGetNumDevs(); ++number) {
        MIDIINCAPSW device{};
        if (midiInGetDevCapsW(number, &device, sizeof device) == MMSYSERR_NOERROR) names.emplace_back(device.szPname);
    }
    names.emplace_back();
    for (UINT number = 0; number < midiOutGetNumDevs(); ++number) {
        MIDIOUTCAPSW device{};
        if (midiOutGetDevCapsW(number, &device, sizeof device) == MMSYSERR_NOERROR) names.emplace_back(device.szPname);
    }
    return names;
}
}  // namespace

WinmmMidi::WinmmMidi(std::string name) : RtMidiDevices(RtMidi::WINDOWS_MM, std::move(name)) {}

bool WinmmMidi::haveChanged()
{
    const auto before = std::exchange(names, findNames());
    return names != before;
}

bool WinmmMidi::hasSources() const { return midiInGetNumDevs() > 0; }

bool WinmmMidi::hasSinks() const { return midiOutGetNumDevs() > 0; }

std::vector<MidiDevice> WinmmMidi::toDevices(const std::vector<std::string>& portNames) const
{
    std::vector<MidiDevice> devices;
    for (const std::string& portName : portNames) {
        const std::string name = withoutPortNumber(portName);
        const auto twins = std::ranges::count(devices, name, &MidiDevice::name);
        devices.push_back({name + "#" + std::to_string(twins), name});
    }
    return devices;
}

std::string withoutPortNumber(const std::string& name)
{
    const auto blank = name.rfind(' ');
    const bool isNumbered = blank != std::string::npos && blank > 0 && blank + 1 < name.size() &&
                            name.find_first_not_of("0123456789", blank + 1) == std::string::npos;
    return isNumbered ? name.substr(0, blank) : name;
}
}  // namespace Host
