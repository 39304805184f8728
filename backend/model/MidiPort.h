#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/Export.h"

namespace Backend::MidiEngine
{
/// A MIDI port as the host reports it. Its index in its list is its number everywhere. The host sets `couldNotOpen`,
/// `name` and `found`; `enabled` is the user's choice. A port that is not found stays in its list, so that numbers
/// stay.
struct ORV_API MidiPort {
    bool couldNotOpen = false;  ///< the host tried and failed
    std::uint8_t reserved = 0;  ///< copied along, no meaning
    std::string name;
    bool enabled = true;  ///< the user wants this port
    bool found = true;    ///< the device existed at the last scan

    std::string getName() const { return name; }

    /// The name as the screens show it, with " (Not Enabled)", " (Not Found)" and " (Couldn't Open)" where true.
    std::string getDisplayName() const;

    bool operator==(const MidiPort&) const = default;
};

struct ORV_API MidiInputPort : MidiPort {
};

struct ORV_API MidiOutputPort : MidiPort {
};

using MidiInputPorts = std::vector<MidiInputPort>;
using MidiOutputPorts = std::vector<MidiOutputPort>;

/// True if `ports` has that index and the port there is enabled.
template <class Ports>
bool isEnabled(const Ports& ports, int index)
{
    return index >= 0 && static_cast<std::size_t>(index) < ports.size() &&
           ports[static_cast<std::size_t>(index)].enabled;
}
}  // namespace Backend::MidiEngine
