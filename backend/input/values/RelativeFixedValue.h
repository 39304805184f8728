#pragma once

#include <cstdint>

/// A number that replaces a value, or that is added to it. Relative 0 is the blank setting: no change.
struct RelativeFixedValue {
    bool relative = false;
    std::int32_t value = 0;

    /// The new value in place of `current`. Limits are those of whoever holds it.
    std::int64_t appliedTo(std::int32_t current) const { return std::int64_t{value} + (relative ? current : 0); }

    bool operator==(const RelativeFixedValue&) const = default;
};
