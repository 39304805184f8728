#pragma once

#include <cstdint>

#include "backend/values/RelativeFixedValue.h"
#include "platform/Export.h"

namespace Backend
{
/// Where the window is asked to go along one axis. Only the window knows how large the screen is.
struct ORV_API WindowCoordinate {
    enum class Unit {
        pixels,
        dataByte  ///< 0 is the one end of the whole virtual screen, 127 the other
    };

    RelativeFixedValue value{};  ///< blank leaves the window where it is; a data byte is never relative
    Unit unit = Unit::pixels;

    /// The same in pixels, on a screen of that many.
    RelativeFixedValue inPixels(std::int32_t screenSize) const;

    bool operator==(const WindowCoordinate&) const = default;
};

struct WindowMove {
    WindowCoordinate x{};
    WindowCoordinate y{};

    bool operator==(const WindowMove&) const = default;
};
}  // namespace Backend
