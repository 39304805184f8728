#include "backend/sections/controls/ControlLink.h"

#include <algorithm>

namespace Backend::Controls
{
std::int64_t ControlLink::follow(std::int64_t delta, std::int64_t value, std::int64_t lowest, std::int64_t highest)
{
    if (delta == 0 || !comesBack(delta, value)) return 0;
    // One that stands beyond the scale has no room left there, rather than less than none: the group never turns round.
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

/// Whether the moving control is back within the reach of the group; then `delta` is how far.
bool ControlLink::comesBack(std::int64_t& delta, std::int64_t value)
{
    if (pendingLink == 0) return true;
    if (pendingLink < 0 && (delta < 0 || value <= -pendingLink)) return false;
    if (pendingLink > 0 && (delta > 0 || value >= pendingLink)) return false;
    delta = pendingLink < 0 ? value + pendingLink : value - pendingLink;
    pendingLink = 0;
    return true;
}
}  // namespace Backend::Controls
