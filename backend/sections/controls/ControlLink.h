#pragma once

#include <cstdint>

#include "platform/Export.h"

namespace Backend::Controls
{
/// Moves a group of linked controls: by how much the others move when one of them moves. They move by the same amount,
/// until one of them reaches 0 or 127. Then the group stops, and moves again when the moving control has come back to
/// the value at which it stopped. See docs/behaviour/controls.md.
class ORV_API ControlLink
{
public:
    static constexpr std::int32_t LOWEST = 0;
    static constexpr std::int32_t HIGHEST = 127;

    /// The moving control moved by `delta` to `value`; `lowest` and `highest` are the values among the others. Returns
    /// by how much the others move, 0 if they stay.
    std::int64_t follow(std::int64_t delta, std::int64_t value, std::int64_t lowest, std::int64_t highest);

    /// The value of the moving control at which the group stopped: negated at the lower end, positive at the upper end,
    /// 0 if the group did not stop.
    std::int64_t getPending() const { return pendingLink; }

    /// To be called when the group has changed.
    void forget() { pendingLink = 0; }

private:
    bool returnsToGroup(std::int64_t& delta, std::int64_t value);

    std::int64_t pendingLink = 0;
};
}  // namespace Backend::Controls
