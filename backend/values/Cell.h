#pragma once

#include <compare>
#include <cstdint>
#include <string>
#include <string_view>

/// A position in the grid of controls, counted from 0; (-1, -1) is no cell. Ordered by row, then column.
struct Cell {
    std::int32_t row = -1;
    std::int32_t col = -1;

    /// From "<row>,<col>". Without a comma only the row is set; what is no number is -1.
    static Cell fromXmlString(std::string_view text);
    std::string toXmlString() const;

    auto operator<=>(const Cell&) const = default;
};
