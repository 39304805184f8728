#pragma once

#include <compare>
#include <cstdint>
#include <string>
#include <string_view>

/// A position in the grid of controls, counted from 0; (-1, -1) is no cell. Ordered by row, then column.
struct Cell {
    std::int32_t row = -1;
    std::int32_t col = -1;

    /// From "<row>,<col>". Without a comma only the row is set; a part that is no number gives -1.
    static Cell fromXmlString(std::string_view text);
    std::string toXmlString() const;

    /// Packed into one word: the row in the upper 16 bits, the column in the lower.
    constexpr std::uint32_t getPacked() const
    {
        return static_cast<std::uint32_t>(row) << 16 | (static_cast<std::uint32_t>(col) & 0xFFFF);
    }
    static constexpr Cell fromPacked(std::uint32_t packed)
    {
        return {static_cast<std::int16_t>(packed >> 16), static_cast<std::int16_t>(packed)};
    }

    auto operator<=>(const Cell&) const = default;
};
