#pragma once

#include <QCursor>

#include "gui/framework/Colour.h"

namespace WindowsLib
{
/// A pointer in a colour: it shows that a value follows the mouse.
class Cursor
{
public:
    explicit Cursor(Colour colour);

    const QCursor& getHandle() const { return handle; }

private:
    QCursor handle;
};
}  // namespace WindowsLib
