#pragma once

#include <QPointF>
#include <Qt>

class QWidget;

namespace Gui
{
class GuiContext;

/// A drag that changes a value. The distance from its beginning, upwards or to the right, divided by the mouse
/// sensitivity is the number of steps. A value that has stopped at a limit changes again as soon as the pointer turns
/// back.
class MouseCapture
{
public:
    enum class Pointer { plain, red };

    MouseCapture(GuiContext& guiContext, QWidget& draggedControl, Qt::Orientation direction = Qt::Vertical);

    /// Positions are global; `value` is what the steps are counted from.
    void begin(const QPointF& position, int value, Pointer pointer);
    void end();

    bool isCaptured() const { return captured; }
    int getValue() const { return startValue; }

    int takeSteps(const QPointF& position);
    /// Whether a step was made since the beginning; if not, the drag is a click.
    bool hasMoved() const { return moved; }

private:
    GuiContext& context;
    QWidget& control;
    Qt::Orientation orientation;
    QPointF startPosition;
    int startValue = 0;
    bool captured = false;
    bool moved = false;
};
}  // namespace Gui
