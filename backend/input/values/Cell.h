#pragma once

#include <cstdint>

/// A position in the grid of controls, counted from 0; (-1, -1) is no cell.
struct Cell {
    std::int32_t row = -1;
    std::int32_t col = -1;

    bool operator==(const Cell&) const = default;
};
