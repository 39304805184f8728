#pragma once

#include <QAbstractSlider>
#include <QTouchEvent>
#include <functional>
#include <optional>

#include "gui/framework/MouseCapture.h"
#include "gui/framework/Wheel.h"

namespace Gui
{
/// A value between two limits that is changed by dragging with the mouse or a finger, by the wheel or the arrow keys;
/// each finger on a touch screen drags another one. After a middle click it follows the mouse without a button held,
/// until the next click. With inverted controls upwards is down. Derived classes draw it.
class DragSlider : public QAbstractSlider
{
public:
    /// The value was changed by any way but `showValue`: mouse, wheel, keys, a screen reader.
    std::function<void(int value)> onChange;
    /// The drag has ended.
    std::function<void()> onRelease;

    /// Does not call `onChange`. During a drag the value does not change; the last one shown is taken over when the
    /// drag ends.
    void showValue(int newValue);

    /// By how much one step of a drag changes the value; 1 unless set.
    void setDragStep(int newDragStep) { dragStep = newDragStep; }
    /// The right mouse button drags like the left one, and opens no menu.
    void dragByRightButton();

protected:
    DragSlider(GuiContext& guiContext, Qt::Orientation direction, QWidget* parent);

    GuiContext& getContext() const { return context; }
    /// The position of the value between its limits, 0 to 1; with an inverted appearance 1 to 0.
    qreal getFraction() const;

    bool event(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    enum class Hold { leftButton, rightButton, finger, nothing };

    void beginDrag(const QPointF& position, Hold newHold);
    void dragTo(const QPointF& position);
    void endDrag();
    void touch(const QTouchEvent& event);

    GuiContext& context;
    MouseCapture capture;
    Hold hold = Hold::leftButton;
    bool dragsByRight = false;
    Wheel wheel;
    int dragStep = 1;
    int finger = 0;
    bool quiet = false;
    std::optional<int> shownMeanwhile;
};
}  // namespace Gui
