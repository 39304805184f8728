#include "gui/framework/Button.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include "api/GuiContext.h"
#include "gui/framework/Look.h"

namespace Gui
{
namespace
{
bool isPressKey(const QKeyEvent& event)
{
    return event.key() == Qt::Key_Space || event.key() == Qt::Key_Select || event.key() == Qt::Key_Return ||
           event.key() == Qt::Key_Enter;
}
}  // namespace

Button::Button(GuiContext& guiContext, int buttonId, const QString& label, const QRect& rectangle, QWidget* parent,
               Action action)
    : QAbstractButton(parent), context(guiContext), id(buttonId)
{
    setText(label);
    setGeometry(rectangle);
    setCheckable(action == Action::latching);
    setFocusPolicy(Qt::TabFocus);  // a click must not take the focus from playing
    setContextMenuPolicy(Qt::PreventContextMenu);
    setAttribute(Qt::WA_OpaquePaintEvent);
    // A click by a screen reader, or by the arrow keys in a group. A latching button has changed its state already.
    connect(this, &QAbstractButton::clicked, this, [this] {
        if (isCheckable()) return notify();
        mouseDown();
        mouseUp();
    });
}

void Button::setPressed(bool pressed)
{
    if (isCheckable())
        setChecked(pressed);
    else
        setDown(pressed);
    update();
}

void Button::mouseDown()
{
    setPressed(!isCheckable() || !isChecked());
    notify();
}

void Button::mouseUp()
{
    setDown(false);
    update();
}

void Button::notify()
{
    if (listener != nullptr) listener->buttonChanged(id, isPressed());
}

void Button::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const GdiManager& gdi = context.getGdiManager();
    Look::drawButton(painter, gdi, rect(), {text(), isEnabled(), isPressed()}, this);
    if (hasFocus()) Look::drawFocus(painter, gdi, rect().adjusted(1, 1, -1, -1));
}

void Button::mousePressEvent(QMouseEvent* event)
{
    event->setAccepted(event->button() == Qt::LeftButton || event->button() == Qt::RightButton);
    if (event->button() == Qt::LeftButton) mouseDown();
}

void Button::mouseMoveEvent(QMouseEvent* event) { event->accept(); }

void Button::mouseReleaseEvent(QMouseEvent* event)
{
    event->setAccepted(event->button() == Qt::LeftButton || event->button() == Qt::RightButton);
    if (event->button() == Qt::LeftButton) mouseUp();
}

void Button::keyPressEvent(QKeyEvent* event)
{
    if (!isPressKey(*event)) return event->ignore();
    if (!event->isAutoRepeat()) mouseDown();
}

void Button::keyReleaseEvent(QKeyEvent* event)
{
    if (!isPressKey(*event)) return event->ignore();
    if (!event->isAutoRepeat()) mouseUp();
}

void Button::focusOutEvent(QFocusEvent* event)
{
    mouseUp();
    QAbstractButton::focusOutEvent(event);
}

void Button::hideEvent(QHideEvent* event)
{
    mouseUp();
    QAbstractButton::hideEvent(event);
}
}  // namespace Gui
