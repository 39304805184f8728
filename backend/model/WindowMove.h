#pragma once

#include <cstdint>

#include "backend/values/RelativeFixedValue.h"
#include "platform/Export.h"

namespace Backend
{
/// A coordinate of a requested window position. The window converts it, since only the window has the screen's size.
struct ORV_API WindowCoordinate {
    enum class Unit {
        pixels,
        dataByte  ///< 0 is one end of the virtual screen, 127 the other
    };

    RelativeFixedValue value{};  ///< blank for no change; a data byte is never relative
    Unit unit = Unit::pixels;

    /// The same in pixels, on a screen of that size.
    RelativeFixedValue inPixels(std::int32_t screenSize) const;

    bool operator==(const WindowCoordinate&) const = default;
};

struct WindowMove {
    WindowCoordinate x{};
    WindowCoordinate y{};

    bool operator==(const WindowMove&) const = default;
};
}  // namespace Backend
