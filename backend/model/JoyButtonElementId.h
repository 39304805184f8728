#pragma once

#include <array>
#include <compare>
#include <cstdint>

#include "backend/model/JoyAxisElementId.h"

namespace Backend::Joystick
{
/// A joystick's own buttons are 0 to 31; the directions of its point-of-view hat are the buttons after them.
inline constexpr int FIRST_DIRECTION = 32;

/// The hat's reading in hundredths of a degree that presses each direction: forward, back, left, right. A reading in
/// between presses none.
inline constexpr std::array<std::uint16_t, 4> DIRECTIONS{0, 18000, 27000, 9000};

inline constexpr int BUTTONS = FIRST_DIRECTION + static_cast<int>(DIRECTIONS.size());

/// A button of a joystick.
struct JoyButtonElementId {
    int joystick = -1;  ///< 0 or 1
    int button = -1;    ///< 0 to 35

    constexpr bool isValid() const { return joystick >= 0 && joystick < JOYSTICKS && button >= 0 && button < BUTTONS; }

    constexpr auto operator<=>(const JoyButtonElementId&) const = default;
};
}  // namespace Backend::Joystick
