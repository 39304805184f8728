#pragma once

#include <QColor>
#include <cstdint>

namespace WindowsLib
{
/// 0x00BBGGRR, opaque.
using Colour = std::uint32_t;

constexpr Colour rgb(unsigned red, unsigned green, unsigned blue) { return blue << 16 | green << 8 | red; }

inline QColor toQColor(Colour colour)
{
    constexpr unsigned BYTE = 0xFF;
    return QColor(static_cast<int>(colour & BYTE), static_cast<int>(colour >> 8 & BYTE),
                  static_cast<int>(colour >> 16 & BYTE));
}
}  // namespace WindowsLib
