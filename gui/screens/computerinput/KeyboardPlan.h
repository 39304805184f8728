#pragma once

#include <QRectF>
#include <span>

namespace Gui::ComputerInput
{
/// A key of the picture. Coordinates are in widths of a letter key, from the upper left corner of the board.
struct PlannedKey {
    int code;
    const char* label;  ///< of the US layout; a label of one character is replaced by that of the current layout
    float x;
    float y;
    float width = 1;
    float height = 1;

    bool contains(QPointF point) const { return QRectF(x, y, width, height).contains(point); }
};

/// The 105 keys of a board: the US layout and the additional European key.
namespace KeyboardPlan
{
inline constexpr float WIDTH = 22.5F;
inline constexpr float HEIGHT = 6.25F;

std::span<const PlannedKey> getKeys();
}  // namespace KeyboardPlan
}  // namespace Gui::ComputerInput
