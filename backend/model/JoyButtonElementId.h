#pragma once

#include <array>
#include <compare>
#include <cstdint>

#include "backend/model/JoyAxisElementId.h"

namespace Backend::Joystick
{
/// The first direction of the point-of-view hat; the directions are numbered after the buttons 0 to 31.
inline constexpr int FIRST_DIRECTION = 32;

/// The readings of the hat, in hundredths of a degree, that count as a pressed direction: forward, back, left, right.
/// Readings in between press none.
inline constexpr std::array<std::uint16_t, 4> DIRECTIONS{0, 18000, 27000, 9000};

inline constexpr int BUTTONS = FIRST_DIRECTION + static_cast<int>(DIRECTIONS.size());

/// The id of a button.
struct JoyButtonElementId {
    int joystick = -1;  ///< 0 or 1
    int button = -1;    ///< 0 to 35

    constexpr bool isValid() const { return joystick >= 0 && joystick < JOYSTICKS && button >= 0 && button < BUTTONS; }

    constexpr auto operator<=>(const JoyButtonElementId&) const = default;
};
}  // namespace Backend::Joystick
