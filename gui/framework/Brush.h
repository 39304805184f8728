#pragma once

#include <QBrush>

#include "gui/framework/Colour.h"

namespace WindowsLib
{
/// A solid fill.
class Brush
{
public:
    explicit Brush(Colour fillColour) : handle(toQColor(fillColour)), colour(fillColour) {}

    const QBrush& getHandle() const { return handle; }
    Colour getColour() const { return colour; }
    const QColor& getQColor() const { return handle.color(); }

private:
    QBrush handle;
    Colour colour;
};
}  // namespace WindowsLib
