#pragma once

#include <vector>

#include "platform/Export.h"

namespace Backend
{
/// Settings that belong to the installation rather than to a program. The backend thread's own; before `start` the
/// host may set what it wants to begin with.
class ORV_API RegistrySettings
{
public:
    /// Index of the output for events that name none, -1 for none. -1 until the first list of ports settles it.
    int getDefaultMidiOutput() const { return defaultMidiOutput; }
    void setDefaultMidiOutput(int port) { defaultMidiOutput = port; }

    /// Whether incoming MIDI also goes to the player. On by default.
    bool getMidiThru() const { return midiThru; }
    void setMidiThru(bool on) { midiThru = on; }

    /// The user's choice per port index. They grow on demand (new ones false) and outlive a device that is away.
    std::vector<bool> getEnabledMidiInputs() const { return enabledMidiInputs; }
    std::vector<bool> getEnabledMidiOutputs() const { return enabledMidiOutputs; }
    /// A negative index is ignored.
    void setMidiInputEnabled(int port, bool enabled);
    void setMidiOutputEnabled(int port, bool enabled);

private:
    int defaultMidiOutput = -1;
    bool midiThru = true;
    std::vector<bool> enabledMidiInputs;
    std::vector<bool> enabledMidiOutputs;
};
}  // namespace Backend
