#pragma once

#include <cstdint>

#include "backend/values/Cell.h"

namespace Backend::Controls
{
/// A cell in one parameter of a message: the row in the upper half, the column in the lower. Each has 16 bits.
constexpr std::uint32_t packCell(const Cell& cell)
{
    return static_cast<std::uint32_t>(cell.row) << 16 | (static_cast<std::uint32_t>(cell.col) & 0xFFFF);
}

constexpr Cell unpackCell(std::uint32_t packed)
{
    return {static_cast<std::int16_t>(packed >> 16), static_cast<std::int16_t>(packed)};
}
}  // namespace Backend::Controls
