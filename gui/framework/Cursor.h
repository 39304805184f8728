#pragma once

#include <QCursor>

#include "gui/framework/Colour.h"

namespace WindowsLib
{
/// A mouse pointer in a colour, shown while a value follows the mouse.
class Cursor
{
public:
    explicit Cursor(Colour colour);

    const QCursor& getHandle() const { return handle; }

private:
    QCursor handle;
};
}  // namespace WindowsLib
