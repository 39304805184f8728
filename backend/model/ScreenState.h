#pragma once

#include <vector>

#include "platform/Export.h"

namespace Backend
{
/// Which screens the window shows. One that was never closed shows what a first look needs: what can be set, what the
/// pointed thing does, the keys to press and the notes they play.
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

    /// One for each screen, in the order above; a list that is too short leaves the rest as a new window has it.
    std::vector<bool> toBits() const;
    static ScreenState fromBits(const std::vector<bool>& bits);

    bool operator==(const ScreenState&) const = default;
};
}  // namespace Backend
