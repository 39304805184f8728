#include "gui/framework/Cursor.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPixmap>
#include <QPolygonF>

namespace WindowsLib
{
namespace
{
constexpr int SIZE = 24;

/// An arrow up and an arrow down, one above the other.
QPixmap draw(const QColor& colour)
{
    constexpr qreal MIDDLE = SIZE / 2.0;
    const QPolygonF up{{QPointF(MIDDLE, 1), QPointF(MIDDLE + 6, 9), QPointF(MIDDLE - 6, 9)}};
    const QPolygonF down{{QPointF(MIDDLE, SIZE - 1), QPointF(MIDDLE + 6, SIZE - 9), QPointF(MIDDLE - 6, SIZE - 9)}};
    const qreal scale = qApp->devicePixelRatio();
    QPixmap pixmap(QSize(SIZE, SIZE) * scale);
    pixmap.setDevicePixelRatio(scale);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Qt::black, 1));
    painter.setBrush(colour);
    painter.drawPolygon(up);
    painter.drawPolygon(down);
    return pixmap;
}
}  // namespace

Cursor::Cursor(Colour colour) : handle(draw(toQColor(colour))) {}
}  // namespace WindowsLib
