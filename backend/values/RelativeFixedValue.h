#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// A number that replaces a value, or that is added to it. Relative 0 is the blank setting: no change.
struct RelativeFixedValue {
    bool relative = false;
    std::int32_t value = 0;

    /// From what the user types: "+5" and "-5" change, "5" sets, blank leaves as it is. What is no number is 0.
    static RelativeFixedValue fromXmlString(std::string_view text);

    /// The same forms. A fixed number below 0 has none of its own: it prints as the relative one does.
    std::string toXmlString() const;

    /// The new value in place of `current`. Limits are the caller's.
    std::int64_t appliedTo(std::int32_t current) const { return std::int64_t{value} + (relative ? current : 0); }

    bool operator==(const RelativeFixedValue&) const = default;
};
