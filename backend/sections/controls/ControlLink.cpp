#include "backend/sections/controls/ControlLink.h"

#include <algorithm>

namespace Backend::Controls
{
std::int64_t ControlLink::follow(std::int64_t delta, std::int64_t value, std::int64_t lowest, std::int64_t highest)
{
    if (delta == 0 || !returnsToGroup(delta, value)) return 0;
    // A control with a value outside the range has no room there, not a negative one: the group never reverses.
    const std::int64_t below = std::max<std::int64_t>(lowest - LOWEST, 0);
    const std::int64_t above = std::max<std::int64_t>(HIGHEST - highest, 0);
    const std::int64_t before = value - delta;
    if (delta < -below) {
        pendingLink = below - before;
        return -below;
    }
    if (delta > above) {
        pendingLink = before + above;
        return above;
    }
    return delta;
}

/// Whether the moving control has come back to where the group stopped; `delta` is then the distance beyond it.
bool ControlLink::returnsToGroup(std::int64_t& delta, std::int64_t value)
{
    if (pendingLink == 0) return true;
    if (pendingLink < 0 && (delta < 0 || value <= -pendingLink)) return false;
    if (pendingLink > 0 && (delta > 0 || value >= pendingLink)) return false;
    delta = pendingLink < 0 ? value + pendingLink : value - pendingLink;
    pendingLink = 0;
    return true;
}
}  // namespace Backend::Controls
