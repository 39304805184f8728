#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// Which item of a list is meant. `value` is its number if `kind` is `specific`.
struct SelectType {
    enum class Kind : std::int32_t { up = 0, down = 1, selected = 2, specific = 3, all = 4 };

    Kind kind = Kind::up;
    std::int32_t value = 0;

    /// From exactly "up", "down", "selected" or "all"; any other text is specific, with 0 if it is no number.
    static SelectType fromXmlString(std::string_view text);
    std::string toXmlString() const;

    bool operator==(const SelectType&) const = default;
};
