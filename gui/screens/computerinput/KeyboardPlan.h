#pragma once

#include <QRectF>
#include <span>

namespace Gui::ComputerInput
{
/// A key of the picture. Places are in units of a letter key, from the upper left corner of the board.
struct PlannedKey {
    int code;
    const char* label;  ///< of the US layout; where it is one sign, the player's layout may have another there
    float x;
    float y;
    float width = 1;
    float height = 1;

    bool contains(QPointF point) const { return QRectF(x, y, width, height).contains(point); }
};

/// The 105 keys of a board: the US one with the European key besides.
namespace KeyboardPlan
{
inline constexpr float WIDTH = 22.5F;
inline constexpr float HEIGHT = 6.25F;

std::span<const PlannedKey> getKeys();
}  // namespace KeyboardPlan
}  // namespace Gui::ComputerInput
