#pragma once

#include <string>

namespace Backend
{
/// What a host keeps, beside the settings, to bring a backend back to where it stood.
struct HostState {
    std::string bank;                 ///< path of the bank; empty for none
    int number = 0;                   ///< the program's number in it, from 0
    std::string program;              ///< the program as it is played, for `OrvIF::loadProgramFromString`
    bool areSettingsWritten = false;  ///< false if the settings could not be written
};
}  // namespace Backend
