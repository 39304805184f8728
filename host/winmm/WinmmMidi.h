#pragma once

#include <string>
#include <vector>

#include "host/rtmidi/RtMidiDevices.h"

namespace Host
{
/// The MIDI devices of Windows (WinMM). Programs have no ports of their own there. The address of a device is its name
/// with a number among the devices of that name, because Windows numbers the devices anew when one is unplugged.
class WinmmMidi final : public RtMidiDevices
{
public:
    explicit WinmmMidi(std::string name);

    std::string name() const override { return "WinMM"; }
    std::string description() const override { return "the MIDI devices of Windows"; }
    bool isAvailable() const override { return true; }
    bool hasVirtualPorts() const override { return false; }
    bool haveChanged() override;

private:
    bool hasSources() const override;
    bool hasSinks() const override;
    std::vector<MidiDevice> toDevices(const std::vector<std::string>& portNames) const override;

    std::vector<std::wstring> names;  // at the last `haveChanged`
};

/// RtMidi's names of ports as the names that Windows gives the devices: without the number of the port at the end,
/// "Keys 0" is "Keys".
std::string withoutPortNumber(const std::string& name);
}  // namespace Host
