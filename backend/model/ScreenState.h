#pragma once

#include <vector>

#include "platform/Export.h"

namespace Backend
{
/// Which screens the window shows. By default those that a new user needs: the system screen, the help, the keys and
/// the notes that they play.
struct ORV_API ScreenState {
    bool system = true;
    bool help = true;
    bool display = false;
    bool oscillators = false;
    bool joystick = false;
    bool midiInput = false;
    bool computerInput = true;
    bool controls = false;
    bool output = true;
    bool layers = false;
    bool cc = false;
    bool zones = false;

    /// One element for each screen, in the order above; screens that are missing in a list have their defaults.
    std::vector<bool> toBits() const;
    static ScreenState fromBits(const std::vector<bool>& bits);

    bool operator==(const ScreenState&) const = default;
};
}  // namespace Backend
