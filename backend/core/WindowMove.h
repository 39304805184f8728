#pragma once

#include "backend/input/values/RelativeFixedValue.h"

namespace Backend
{
/// Where the window is asked to go, in pixels; blank leaves a coordinate as it is.
struct WindowMove {
    RelativeFixedValue x{};
    RelativeFixedValue y{};

    bool operator==(const WindowMove&) const = default;
};
}  // namespace Backend
