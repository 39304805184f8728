#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/Export.h"

namespace Backend::MidiEngine
{
/// A MIDI port as the host reports it. Its number is its index in its list. The host sets `couldNotOpen`, `name` and
/// `found`; `enabled` is the user's choice. A port that is not found stays in its list, so that the numbers of the
/// others do not change.
struct ORV_API MidiPort {
    bool couldNotOpen = false;  ///< the host tried and failed
    std::uint8_t reserved = 0;  ///< copied, without a meaning
    std::string name;
    bool enabled = true;  ///< the user's choice
    bool found = true;    ///< the device is present

    std::string getName() const { return name; }

    /// The name, followed by " (Not Enabled)", " (Not Found)" and " (Couldn't Open)" if these apply.
    std::string getDisplayName() const;

    bool operator==(const MidiPort&) const = default;
};

struct ORV_API MidiInputPort : MidiPort {
};

struct ORV_API MidiOutputPort : MidiPort {
};

using MidiInputPorts = std::vector<MidiInputPort>;
using MidiOutputPorts = std::vector<MidiOutputPort>;

/// Whether `ports` has that index and the port is enabled.
template <class Ports>
bool isEnabled(const Ports& ports, int index)
{
    return index >= 0 && static_cast<std::size_t>(index) < ports.size() &&
           ports[static_cast<std::size_t>(index)].enabled;
}
}  // namespace Backend::MidiEngine
