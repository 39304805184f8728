#include "gui/framework/DragSlider.h"

#include <QMouseEvent>
#include <QWheelEvent>
#include <algorithm>
#include <cstdint>
#include <utility>

#include "gui/framework/Properties.h"

namespace Gui
{
DragSlider::DragSlider(GuiContext& guiContext, Qt::Orientation direction, QWidget* parent)
    : QAbstractSlider(parent), context(guiContext), capture(guiContext, *this, direction)
{
    setOrientation(direction);
    setRange(0, 127);
    setFocusPolicy(Qt::TabFocus);  // a click must not take the focus from playing
    setAttribute(Qt::WA_OpaquePaintEvent);
    connect(this, &QAbstractSlider::valueChanged, this, [this](int newValue) {
        if (!quiet && onChange) onChange(newValue);
    });
}

void DragSlider::showValue(int newValue)
{
    if (capture.isCaptured()) {
        shownMeanwhile = newValue;
        return;
    }
    quiet = true;
    setValue(newValue);
    quiet = false;
}

qreal DragSlider::getFraction() const
{
    const qreal span = static_cast<qreal>(maximum()) - minimum();
    return span > 0 ? (static_cast<qreal>(value()) - minimum()) / span : 0;
}

void DragSlider::beginDrag(const QPointF& position, Hold newHold)
{
    hold = newHold;
    capture.begin(position, value(), MouseCapture::Pointer::red);
    setSliderDown(true);
    if (hold == Hold::button) return;
    setMouseTracking(true);
    grabMouse();
}

void DragSlider::endDrag()
{
    if (!capture.isCaptured()) return;
    if (hold == Hold::nothing) releaseMouse();
    setMouseTracking(false);
    capture.end();
    setSliderDown(false);
    if (onRelease) onRelease();
    if (const auto shown = std::exchange(shownMeanwhile, std::nullopt)) showValue(*shown);
}

void DragSlider::mousePressEvent(QMouseEvent* event)
{
    if (capture.isCaptured()) return hold == Hold::nothing ? endDrag() : event->ignore();
    if (event->button() == Qt::LeftButton)
        beginDrag(event->globalPosition(), Hold::button);
    else if (event->button() == Qt::MiddleButton)
        beginDrag(event->globalPosition(), Hold::nothing);
    else
        event->ignore();
}

void DragSlider::mouseMoveEvent(QMouseEvent* event)
{
    if (!capture.isCaptured()) return event->ignore();
    const std::int64_t wanted =
        capture.getValue() + static_cast<std::int64_t>(capture.takeSteps(event->globalPosition())) * dragStep;
    setValue(static_cast<int>(std::clamp<std::int64_t>(wanted, minimum(), std::max(minimum(), maximum()))));
}

void DragSlider::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && hold == Hold::button) endDrag();
}

void DragSlider::wheelEvent(QWheelEvent* event)
{
    if (Property::isSet(*this, Property::NOWHEEL)) return event->ignore();
    setValue(value() + wheel.takeNotches(*event));
    event->accept();
}

void DragSlider::hideEvent(QHideEvent* event)
{
    endDrag();
    QAbstractSlider::hideEvent(event);
}

void DragSlider::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::EnabledChange && !isEnabled()) endDrag();
    QAbstractSlider::changeEvent(event);
}
}  // namespace Gui
