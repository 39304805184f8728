#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "backend/values/Cell.h"

/// Which control of the grid is meant. `cell` is its cell if `kind` is `specific`; a cell of (-1, -1) means the
/// selected control.
struct SelectControlType {
    enum class Kind : std::int32_t { up = 0, down = 1, left = 2, right = 3, selected = 4, specific = 5, all = 6 };

    Kind kind = Kind::right;
    Cell cell{0, 0};

    /// From exactly one of the six words; any other text is specific and read as a cell.
    static SelectControlType fromXmlString(std::string_view text);
    std::string toXmlString() const;

    bool operator==(const SelectControlType&) const = default;
};
