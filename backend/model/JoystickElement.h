#pragma once

#include <cstdint>

#include "backend/model/AxisFunction.h"

namespace Backend::Joystick
{
/// An axis or a button of a joystick, packed for a message.
struct JoystickElement {
    int joystick = 0;
    int part = 0;  ///< the number of the axis or button
    AxisMode mode = AxisMode::position;

    constexpr std::uint32_t getPacked() const
    {
        const auto byte = [](int value) { return static_cast<std::uint32_t>(value) & 0xFF; };
        return byte(joystick) | byte(part) << 8 | static_cast<std::uint32_t>(mode) << 16;
    }
    static constexpr JoystickElement fromPacked(std::uint32_t word)
    {
        return {static_cast<int>(word & 0xFF), static_cast<int>(word >> 8 & 0xFF), static_cast<AxisMode>(word >> 16)};
    }
};

/// The positions of two axes, each 0 to 65535.
struct AxisPair {
    int first = 0;
    int second = 0;

    constexpr std::uint32_t getPacked() const
    {
        return (static_cast<std::uint32_t>(first) & 0xFFFF) | static_cast<std::uint32_t>(second) << 16;
    }
    static constexpr AxisPair fromPacked(std::uint32_t word)
    {
        return {static_cast<int>(word & 0xFFFF), static_cast<int>(word >> 16)};
    }
};
}  // namespace Backend::Joystick
