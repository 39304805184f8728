#pragma once

#include <cstdint>

#include "platform/KeyRepeat.h"

namespace Backend::Joystick
{
/// When a button that is held goes down again, as a held key of the computer does. Times are milliseconds of a clock
/// that may wrap round.
struct ButtonRepeat {
    std::uint32_t pressTime = 0;
    std::uint32_t repeatDelay = KeyRepeat{}.delay;
    std::uint32_t repeatInterval = KeyRepeat{}.interval;
    std::uint32_t lastRepeat = 0;
    bool isPressed = false;  ///< it was seen to go down, and not since up

    void press(std::uint32_t now)
    {
        pressTime = now;
        lastRepeat = now - repeatInterval - 1;  // long enough ago
        isPressed = true;
    }
    void release() { isPressed = false; }

    bool isDue(std::uint32_t now) const
    {
        return isPressed && now - pressTime >= repeatDelay && now - lastRepeat > repeatInterval;
    }
};
}  // namespace Backend::Joystick
