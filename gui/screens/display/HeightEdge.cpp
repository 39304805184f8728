#include "gui/screens/display/HeightEdge.h"

#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include "gui/framework/GdiManager.h"

namespace Gui::Display
{
namespace
{
constexpr int STEP = 4;
constexpr int PAGE = 40;
constexpr int GRIP = 40;
}  // namespace

HeightEdge::HeightEdge(GdiManager& manager, int lowest, int highest, QWidget* parent)
    : QAbstractSlider(parent), gdi(manager)
{
    setOrientation(Qt::Vertical);
    setInvertedControls(true);  // downwards increases the value
    setRange(lowest, highest);
    setSingleStep(STEP);
    setPageStep(PAGE);
    setFocusPolicy(Qt::TabFocus);
    setCursor(Qt::SizeVerCursor);
}

/// Two short lines in the middle.
void HeightEdge::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), gdi.getBrush(GdiManager::Role::background).getHandle());
    const QColor ink =
        gdi.getColour(hasFocus() || isSliderDown() ? GdiManager::Role::text : GdiManager::Role::controlBorder);
    const QRect grip(width() / 2 - GRIP / 2, 2, GRIP, 1);
    painter.fillRect(grip, ink);
    painter.fillRect(grip.translated(0, 2), ink);
}

void HeightEdge::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) return event->ignore();
    grabbedAt = event->globalPosition().y() - value() * gdi.getScale();
    setSliderDown(true);
    update();
}

/// Global positions, because the edge moves with the pointer.
void HeightEdge::mouseMoveEvent(QMouseEvent* event)
{
    if (isSliderDown()) setValue(qRound((event->globalPosition().y() - grabbedAt) / gdi.getScale()));
}

void HeightEdge::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || !isSliderDown()) return;
    setSliderDown(false);
    update();
}

void HeightEdge::wheelEvent(QWheelEvent* event) { event->ignore(); }
}  // namespace Gui::Display
