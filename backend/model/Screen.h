#pragma once

#include <cstdint>

namespace Backend
{
/// The screens of the window, in the order in which their state is stored.
enum class Screen : std::uint8_t {
    system,
    help,
    display,
    oscillators,
    joystick,
    midiInput,
    computerInput,
    controls,
    output,
    layers,
    cc,
    zones
};
}  // namespace Backend
