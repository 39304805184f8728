#pragma once

#include <cstdint>

namespace WindowsLib
{
/// A rectangle in pixels: left and top are inside it, right and bottom are just outside.
struct Rect {
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t right = 0;
    std::int32_t bottom = 0;

    bool operator==(const Rect&) const = default;
};
}  // namespace WindowsLib
