#include "gui/screens/joystick/GridCtl.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

#include "api/GuiContext.h"
#include "gui/framework/GdiManager.h"
#include "gui/framework/Look.h"
#include "gui/framework/Properties.h"

namespace Gui::Joystick
{
using Role = GdiManager::Role;

namespace
{
constexpr int CENTRE = 32768;
constexpr int STEP = 1024;  // of the arrow keys
constexpr int WIDE_STEP = 8192;
constexpr int DISC = 14;  // logical pixels
}  // namespace

GridCtl::GridCtl(GuiContext& owner, const QString& acrossName, const QString& upName, QWidget* parent)
    : QWidget(parent), context(owner), names{acrossName, upName}, positions{CENTRE, CENTRE}
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::TabFocus);  // a click must not take the focus from playing
    Property::setHelp(*this, tr("%1 and %2: drag to play them, also while the joystick is off. The arrow keys move "
                                "the point, with Shift further; a double click or Home centres it.")
                                 .arg(acrossName, upName));
}

QString GridCtl::getAccessibleValue() const
{
    const auto percent = [this](Part part) { return qRound(100.0 * positions[part] / HIGHEST); };
    return tr("%1 %2 %, %3 %4 %").arg(names[across]).arg(percent(across)).arg(names[up]).arg(percent(up));
}

// --- the point

void GridCtl::set(int acrossPosition, int upPosition)
{
    const std::array now{std::clamp(acrossPosition, 0, HIGHEST), std::clamp(upPosition, 0, HIGHEST)};
    if (now == positions) return;
    positions = now;
    update();
    if (hasFocus()) accessibleValueChanged(*this, getAccessibleValue());
}

void GridCtl::showPosition(Part part, int position)
{
    if (isDragged) return;
    part == across ? set(position, positions[up]) : set(positions[across], position);
}

void GridCtl::moveTo(int acrossPosition, int upPosition)
{
    set(acrossPosition, upPosition);
    if (onMove) onMove(positions[across], positions[up]);
}

void GridCtl::step(Part part, int by)
{
    part == across ? set(positions[across] + by, positions[up]) : set(positions[across], positions[up] + by);
    if (onStep) onStep(part, positions[part]);
}

/// The points between the middles of the disc at both ends.
QRect GridCtl::getField() const
{
    const int margin = context.getGdiManager().px(DISC) / 2 + 1;
    return rect().adjusted(margin, margin, -margin, -margin);
}

// --- the mouse and the keys

void GridCtl::moveTo(const QPointF& point)
{
    const QRectF field(getField());
    moveTo(qRound((point.x() - field.left()) * HIGHEST / field.width()),
           qRound((field.bottom() - point.y()) * HIGHEST / field.height()));
}

void GridCtl::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) return event->ignore();
    isDragged = true;
    moveTo(event->position());
}

void GridCtl::mouseMoveEvent(QMouseEvent* event)
{
    if (isDragged) moveTo(event->position());
}

void GridCtl::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) isDragged = false;
}

void GridCtl::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) moveTo(CENTRE, CENTRE);
}

/// Other keys are left to the window and to playing.
void GridCtl::keyPressEvent(QKeyEvent* event)
{
    const auto held = event->modifiers() & ~Qt::KeypadModifier;
    if (held != Qt::NoModifier && held != Qt::ShiftModifier) return event->ignore();
    const int by = held == Qt::ShiftModifier ? WIDE_STEP : STEP;
    switch (event->key()) {
        case Qt::Key_Left:
            return step(across, -by);
        case Qt::Key_Right:
            return step(across, by);
        case Qt::Key_Down:
            return step(up, -by);
        case Qt::Key_Up:
            return step(up, by);
        case Qt::Key_Home:
            return moveTo(CENTRE, CENTRE);
        default:
            event->ignore();
    }
}

void GridCtl::focusInEvent(QFocusEvent* event)
{
    QWidget::focusInEvent(event);
    update();
}

void GridCtl::focusOutEvent(QFocusEvent* event)
{
    QWidget::focusOutEvent(event);
    update();
}

// --- drawing

void GridCtl::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    GdiManager& gdi = context.getGdiManager();
    painter.fillRect(rect(), gdi.getColour(Role::background));
    Look::drawFrame(painter, gdi, rect(), isEnabled());
    const QRect field = getField();
    painter.setPen(gdi.getColour(Role::unusedButton));
    painter.drawLine(field.left(), field.center().y(), field.right(), field.center().y());
    painter.drawLine(field.center().x(), field.top(), field.center().x(), field.bottom());
    painter.setFont(gdi.getFont(GdiManager::FontRole::font9));
    painter.setPen(gdi.getColour(Role::label));
    const QRect texts = rect().adjusted(gdi.px(6), gdi.px(4), -gdi.px(6), -gdi.px(4));
    painter.drawText(texts, Qt::AlignRight | Qt::AlignBottom, names[across]);
    painter.drawText(texts, Qt::AlignLeft | Qt::AlignTop, names[up]);

    const int size = gdi.px(DISC);
    const QPoint middle(field.left() + qRound(1.0 * field.width() * positions[across] / HIGHEST),
                        field.bottom() - qRound(1.0 * field.height() * positions[up] / HIGHEST));
    Look::drawDisc(painter, gdi, middle - QPoint(size / 2, size / 2), DISC, Role::selectedButton);
    if (hasFocus()) Look::drawFocus(painter, gdi, rect());
}
}  // namespace Gui::Joystick
