#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// A number that replaces a value or is added to it. Relative 0 is the blank setting: no change.
struct RelativeFixedValue {
    bool relative = false;
    std::int32_t value = 0;

    /// From the user's text: "+5" and "-5" are added, "5" replaces, blank changes nothing. Any other text is 0.
    static RelativeFixedValue fromXmlString(std::string_view text);

    /// The same forms. A fixed number below 0 has no form of its own and is printed like a relative one.
    std::string toXmlString() const;

    /// The new value in place of `current`; the caller limits it.
    std::int64_t appliedTo(std::int32_t current) const { return std::int64_t{value} + (relative ? current : 0); }

    bool operator==(const RelativeFixedValue&) const = default;
};
