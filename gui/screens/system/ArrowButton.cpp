#include "gui/screens/system/ArrowButton.h"

#include <QPainter>

namespace Gui::System
{
namespace
{
constexpr int AROUND = 14;
}

ArrowButton::ArrowButton(const GdiManager& manager, Look::Direction pointsTo, QWidget* parent)
    : QPushButton(parent), gdi(manager), direction(pointsTo)
{
}

void ArrowButton::paintEvent(QPaintEvent* event)
{
    QPushButton::paintEvent(event);
    QPainter painter(this);
    const QRectF place = QRectF(rect()).adjusted(gdi.px(AROUND), 0, -gdi.px(AROUND), 0);
    Look::drawTriangle(painter, place, direction, gdi.getColour(GdiManager::Role::background));
}
}  // namespace Gui::System
