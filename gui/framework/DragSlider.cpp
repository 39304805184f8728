#include "gui/framework/DragSlider.h"

#include <QMouseEvent>
#include <QTouchEvent>
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
    setAttribute(Qt::WA_AcceptTouchEvents);
    connect(this, &QAbstractSlider::valueChanged, this, [this](int newValue) {
        if (quiet) return;
        shownMeanwhile.reset();  // it is older
        if (onChange) onChange(newValue);
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

void DragSlider::dragByRightButton()
{
    dragsByRight = true;
    setContextMenuPolicy(Qt::PreventContextMenu);
}

qreal DragSlider::getFraction() const
{
    const qreal span = static_cast<qreal>(maximum()) - minimum();
    const qreal fraction = span > 0 ? (static_cast<qreal>(value()) - minimum()) / span : 0;
    return invertedAppearance() ? 1 - fraction : fraction;
}

void DragSlider::beginDrag(const QPointF& position, Hold newHold)
{
    hold = newHold;
    capture.begin(position, value(), MouseCapture::Pointer::red);
    setSliderDown(true);
    if (hold != Hold::nothing) return;
    setMouseTracking(true);
    grabMouse();
}

void DragSlider::dragTo(const QPointF& position)
{
    const std::int64_t steps = static_cast<std::int64_t>(capture.takeSteps(position)) * dragStep;
    const std::int64_t wanted = capture.getValue() + (invertedControls() ? -steps : steps);
    setValue(static_cast<int>(std::clamp<std::int64_t>(wanted, minimum(), std::max(minimum(), maximum()))));
}

void DragSlider::endDrag()
{
    if (!capture.isCaptured()) return;
    if (hold == Hold::nothing) releaseMouse();
    setMouseTracking(false);
    capture.end();
    setSliderDown(false);
    if (const auto shown = std::exchange(shownMeanwhile, std::nullopt)) showValue(*shown);
    if (onRelease) onRelease();
}

void DragSlider::mousePressEvent(QMouseEvent* event)
{
    if (capture.isCaptured()) return hold == Hold::nothing ? endDrag() : event->ignore();
    if (event->button() == Qt::LeftButton)
        beginDrag(event->globalPosition(), Hold::leftButton);
    else if (event->button() == Qt::RightButton && dragsByRight)
        beginDrag(event->globalPosition(), Hold::rightButton);
    else if (event->button() == Qt::MiddleButton)
        beginDrag(event->globalPosition(), Hold::nothing);
    else
        event->ignore();
}

void DragSlider::mouseMoveEvent(QMouseEvent* event)
{
    if (!capture.isCaptured() || hold == Hold::finger) return event->ignore();
    dragTo(event->globalPosition());
}

void DragSlider::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == (hold == Hold::leftButton    ? Qt::LeftButton
                            : hold == Hold::rightButton ? Qt::RightButton
                                                        : Qt::NoButton))
        endDrag();
}

void DragSlider::wheelEvent(QWheelEvent* event)
{
    if (Property::isSet(*this, Property::NOWHEEL)) return event->ignore();
    const int steps = wheel.takeNotches(*event) * singleStep();
    setValue(value() + (invertedControls() ? -steps : steps));
    event->accept();
}

bool DragSlider::event(QEvent* event)
{
    switch (event->type()) {
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::TouchEnd:
        case QEvent::TouchCancel:
            if (!isEnabled()) return QAbstractSlider::event(event);
            touch(static_cast<const QTouchEvent&>(*event));
            event->accept();  // so that no mouse event is made of it
            return true;
        default:
            return QAbstractSlider::event(event);
    }
}

/// The first finger drags, others are ignored.
void DragSlider::touch(const QTouchEvent& event)
{
    if (event.type() == QEvent::TouchCancel) return hold == Hold::finger ? endDrag() : void();
    for (const auto& point : event.points()) {
        if (point.state() == QEventPoint::Pressed && !capture.isCaptured()) {
            finger = point.id();
            beginDrag(point.globalPosition(), Hold::finger);
        }
        if (hold != Hold::finger || point.id() != finger || !capture.isCaptured()) continue;
        dragTo(point.globalPosition());
        if (point.state() == QEventPoint::Released) endDrag();
    }
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
