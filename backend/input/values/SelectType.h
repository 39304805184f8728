#pragma once

#include <cstdint>

/// Which item of a list is addressed. `value` is the item's number when `kind` is `specific`.
struct SelectType {
    enum class Kind : std::int32_t { up = 0, down = 1, selected = 2, specific = 3, all = 4 };

    Kind kind = Kind::up;
    std::int32_t value = 0;

    bool operator==(const SelectType&) const = default;
};
