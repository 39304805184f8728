#pragma once

#include <cstdint>

#include "platform/Export.h"

namespace Backend::Controls
{
/// How far the others go when one of several linked controls moves: as far as it does, until one of them meets an end
/// of the scale from 0 to 127. There the group stops and keeps its shape, and goes on when the moving control has come
/// back to where it stopped.
class ORV_API ControlLink
{
public:
    static constexpr std::int32_t LOWEST = 0;
    static constexpr std::int32_t HIGHEST = 127;

    /// The moving control went by `delta` to `value`; `lowest` and `highest` are the values among the others. Returns
    /// how far they go, 0 if they stay.
    std::int64_t follow(std::int64_t delta, std::int64_t value, std::int64_t lowest, std::int64_t highest);

    /// The value of the moving control at which the group stopped: below 0 (then negated) at the lower end, above 0 at
    /// the upper, 0 if nothing waits.
    std::int64_t getPending() const { return pendingLink; }

    /// Another group, or none.
    void forget() { pendingLink = 0; }

private:
    bool comesBack(std::int64_t& delta, std::int64_t value);

    std::int64_t pendingLink = 0;
};
}  // namespace Backend::Controls
