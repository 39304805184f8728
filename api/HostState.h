#pragma once

#include <string>
#include <vector>

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
}  // namespace Backend
