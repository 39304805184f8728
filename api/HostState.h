#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/Export.h"

namespace Backend
{
/// The state that a host stores, besides the settings, to restore a backend.
struct HostState {
    std::string bank;                 ///< path of the bank; empty for none
    int number = 0;                   ///< the program's number in it, from 0
    std::string program;              ///< the program as it is played, for `OrvIF::loadProgramFromString`
    bool areSettingsWritten = false;  ///< false if the settings could not be written
};

/// What a host gets from the settings and from what was loaded at the start.
struct HostStart {
    std::string bank;                  ///< path of the bank that is loaded; empty for none
    std::string defaultBank;           ///< path of the bank that the settings name
    std::vector<bool> enabledInputs;   ///< the user's choices by port number, as far as they are stored
    std::vector<bool> enabledOutputs;  ///< the same for outputs
};

/// The settings that a host that plays live executes: the synthesizer, JACK and the MIDI clocks.
struct ORV_API HostSettings {
    int volume = 100;           ///< of the synthesizer, in percent, 0 to 100
    bool reverb = true;         ///< of the synthesizer
    std::string soundFont;      ///< path; empty for the installed one
    std::string client;         ///< name in the JACK graph; empty for the host's own
    bool connectsSound = true;  ///< the synthesizer is connected to the sound card at the start
    int clockIn = -1;           ///< the input whose MIDI clock sets the tempo; -1 for none
    int clockOut = -1;          ///< the output that a MIDI clock is sent to; -1 for none
    bool followsTransport = false;

    bool operator==(const HostSettings&) const = default;

    /// As they are stored now under that key (`OrvUtils::getRegistryKey`), for what a host opens before it makes a
    /// backend. A value outside its range is the default. Any thread.
    static HostSettings load(const std::string& key);
};

/// The settings that the command line of a host replaces for this run.
struct HostOverrides {
    bool client = false;
    bool clockIn = false;
    bool clockOut = false;
    bool transport = false;
};

/// A host that executes `HostSettings`.
struct HostSettingsUse {
    /// Gets them all after each change, on the backend thread.
    std::function<void(const HostSettings& settings)> changed{};
    HostOverrides overrides{};
};

/// Which recovery file a host restores when it starts to keep one of its own, see `OrvIF::keepRecovery`.
struct RecoveryPlan {
    enum class Restores {
        any,
        ofCurrentBank,  ///< only if it is of the bank that was loaded, as for a bank on the command line
        nothing
    };

    Restores restores = Restores::any;
    std::string newerThan{};  ///< path of a file than which it must be newer; empty for none
};
}  // namespace Backend
