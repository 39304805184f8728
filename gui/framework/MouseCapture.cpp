#include "gui/framework/MouseCapture.h"

#include <QWidget>
#include <algorithm>

#include "api/GuiContext.h"
#include "gui/framework/GdiManager.h"

namespace Gui
{
MouseCapture::MouseCapture(GuiContext& guiContext, QWidget& draggedControl, Qt::Orientation direction)
    : context(guiContext), control(draggedControl), orientation(direction)
{
}

void MouseCapture::begin(const QPointF& position, int value, Pointer pointer)
{
    startPosition = position;
    startValue = value;
    captured = true;
    moved = false;
    if (pointer == Pointer::red) control.setCursor(context.getGdiManager().getRedCursor().getHandle());
}

void MouseCapture::end()
{
    captured = false;
    control.unsetCursor();
}

int MouseCapture::takeSteps(const QPointF& position)
{
    const QPointF way = position - startPosition;
    const int distance = static_cast<int>(orientation == Qt::Vertical ? -way.y() : way.x());
    const int steps = distance / std::max(context.getMouseSensitivity(), 1);
    moved = moved || steps != 0;
    return steps;
}
}  // namespace Gui
