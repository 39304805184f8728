#pragma once

#include <algorithm>
#include <array>
#include <compare>
#include <cstddef>
#include <string_view>

namespace Backend::Joystick
{
inline constexpr int JOYSTICKS = 2;

/// The axes as the screen and the files name them. Each has a position in the readings of the hardware, whose order is
/// X, Y, Z, R, U, V: the second stick of a device with two is reported as R and U, and called U and V here.
struct JoyAxis {
    std::string_view name;
    std::size_t position;  ///< of the hardware, from 0
    bool isReversed;       ///< 0 of the hardware is 65535 here: pushing forward is up
};

inline constexpr std::array JOY_AXES{JoyAxis{"X", 0, false}, JoyAxis{"Y", 1, true}, JoyAxis{"Z", 2, false},
                                     JoyAxis{"U", 3, false}, JoyAxis{"V", 4, true}, JoyAxis{"R", 5, false}};

/// The id of an axis.
struct JoyAxisElementId {
    int joystick = -1;  ///< 0 or 1
    int axis = -1;      ///< 0 to 5, an index of JOY_AXES

    constexpr bool isValid() const
    {
        return joystick >= 0 && joystick < JOYSTICKS && axis >= 0 && axis < static_cast<int>(JOY_AXES.size());
    }

    constexpr auto operator<=>(const JoyAxisElementId&) const = default;
};

/// The name of an axis, empty for another number.
constexpr std::string_view getAxisName(int axis)
{
    return JoyAxisElementId{0, axis}.isValid() ? JOY_AXES[static_cast<std::size_t>(axis)].name : std::string_view{};
}

/// The axis of exactly that name, -1 if there is none.
constexpr int findAxis(std::string_view name)
{
    const auto row = std::ranges::find(JOY_AXES, name, &JoyAxis::name);
    return row == JOY_AXES.end() ? -1 : static_cast<int>(row - JOY_AXES.begin());
}
}  // namespace Backend::Joystick
