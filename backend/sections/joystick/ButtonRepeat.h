#pragma once

#include <cstdint>

#include "platform/KeyRepeat.h"

namespace Backend::Joystick
{
/// Determines when a held button repeats, in the way of a key of the computer. Times are in milliseconds of a clock
/// that may wrap round.
struct ButtonRepeat {
    std::uint32_t pressTime = 0;
    std::uint32_t repeatDelay = KeyRepeat{}.delay;
    std::uint32_t repeatInterval = KeyRepeat{}.interval;
    std::uint32_t lastRepeat = 0;
    bool isPressed = false;  ///< it was pressed since it was last released

    void press(std::uint32_t now)
    {
        pressTime = now;
        lastRepeat = now - repeatInterval - 1;  // only the delay counts for the first repeat
        isPressed = true;
    }
    void release() { isPressed = false; }

    bool isDue(std::uint32_t now) const
    {
        return isPressed && now - pressTime >= repeatDelay && now - lastRepeat > repeatInterval;
    }
};
}  // namespace Backend::Joystick
