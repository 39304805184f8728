#pragma once

namespace Backend
{
/// Which screens the window shows. A window that was never closed shows the system's alone.
struct ScreenState {
    bool system = true;
    bool help = false;
    bool display = false;
    bool oscillators = false;
    bool joystick = false;
    bool midiInput = false;
    bool computerInput = false;
    bool controls = false;
    bool output = false;
    bool layers = false;
    bool cc = false;
    bool zones = false;

    bool operator==(const ScreenState&) const = default;
};
}  // namespace Backend
