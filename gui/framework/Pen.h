#pragma once

#include <QPen>

#include "gui/framework/Colour.h"

namespace WindowsLib
{
/// A solid line, `width` logical pixels wide.
class Pen
{
public:
    Pen(int width, Colour lineColour) : handle(toQColor(lineColour), width), colour(lineColour) {}

    const QPen& getHandle() const { return handle; }
    Colour getColour() const { return colour; }

private:
    QPen handle;
    Colour colour;
};
}  // namespace WindowsLib
