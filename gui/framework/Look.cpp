#include "gui/framework/Look.h"

#include <QPainter>
#include <QPolygonF>
#include <QTransform>
#include <algorithm>

#include "gui/framework/Properties.h"

namespace Gui::Look
{
namespace
{
using Role = GdiManager::Role;
using FontRole = GdiManager::FontRole;

constexpr int SMALL_WIDTH = 11;
constexpr int SMALL_HEIGHT = 16;

bool isMarked(const QWidget* control, const char* property)
{
    return control != nullptr && Property::isSet(*control, property);
}

QColor fillOf(const GdiManager& gdi, const ButtonState& state, const QWidget* control)
{
    if (!state.enabled) return gdi.getColour(Role::disabledButton);
    if (const QVariant own = control == nullptr ? QVariant() : control->property(Property::COLOR); own.isValid())
        return own.value<QColor>();
    return gdi.getColour(state.pressed ? Role::selectedButton : Role::unselectedButton);
}

QColor inkOf(const GdiManager& gdi, const ButtonState& state, const QWidget* control)
{
    if (isMarked(control, Property::SELECTED)) return gdi.getColour(Role::selectedButton);
    return WindowsLib::toQColor(state.pressed && !state.enabled ? GdiManager::WHITE : GdiManager::BLACK);
}

void fillButton(QPainter& painter, const GdiManager& gdi, const QRect& rectangle, const ButtonState& state,
                const QWidget* control)
{
    if (!isMarked(control, Property::GRAYTEXT)) return painter.fillRect(rectangle, fillOf(gdi, state, control));
    painter.fillRect(rectangle, gdi.getColour(Role::unselectedButton));
    painter.fillRect(rectangle, QBrush(gdi.getColour(Role::selectedButton), Qt::Dense4Pattern));
}
}  // namespace

void drawFrame(QPainter& painter, const GdiManager& gdi, const QRect& rectangle, bool enabled)
{
    painter.setPen(gdi.getColour(enabled ? Role::controlBorder : Role::controlBorderDisabled));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(rectangle.adjusted(0, 0, -1, -1));
}

void drawFocus(QPainter& painter, const GdiManager& gdi, const QRect& rectangle)
{
    painter.setPen(QPen(gdi.getColour(Role::text), 1, Qt::DotLine));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(rectangle.adjusted(0, 0, -1, -1));
}

void drawTriangle(QPainter& painter, const QRectF& place, Direction direction, const QColor& colour)
{
    const qreal half = std::min(place.width(), place.height()) / 2;
    const QPolygonF upwards{{QPointF(-half, half / 2), QPointF(half, half / 2), QPointF(0, -half / 2)}};
    constexpr qreal TURNS[] = {0, 180, 270, 90};
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.translate(place.center());
    painter.drawPolygon(QTransform().rotate(TURNS[static_cast<int>(direction)]).map(upwards));
    painter.restore();
}

void drawButton(QPainter& painter, const GdiManager& gdi, const QRect& rectangle, const ButtonState& state,
                const QWidget* control)
{
    fillButton(painter, gdi, rectangle, state, control);

    const bool isPlus = state.label == QLatin1String("+");
    const bool isMinus = state.label == QLatin1String("-");
    const bool isLow = rectangle.height() < SMALL_HEIGHT;
    if (isLow || rectangle.width() < SMALL_WIDTH)
        painter.setFont(gdi.getFont(isPlus || isMinus ? FontRole::font5 : FontRole::font3));
    painter.setPen(inkOf(gdi, state, control));
    // The font draws these signs low in their line.
    const int lift = (isLow && isPlus) || isMinus ? 1 : 0;
    painter.drawText(rectangle.translated(0, -lift), Qt::AlignCenter | Qt::TextShowMnemonic | Qt::TextSingleLine,
                     state.label);
}

void drawDisc(QPainter& painter, GdiManager& gdi, const QPoint& corner, int diameter, Role colour)
{
    const auto& disc = gdi.getKnob(gdi.getBrush(colour).getColour(), gdi.getBrush(Role::background).getColour(),
                                   GdiManager::Edge::smooth, diameter, painter.device()->devicePixelRatioF());
    painter.drawPixmap(corner, disc.getHandle());
}

void drawFader(QPainter& painter, GdiManager& gdi, const QRect& rectangle, const FaderState& state)
{
    painter.fillRect(rectangle, gdi.getColour(Role::background));
    painter.setPen(gdi.getColour(state.enabled ? Role::controlBorder : Role::controlBorderDisabled));
    const bool upright = state.orientation == Qt::Vertical;
    const QPoint middle = rectangle.center();
    if (upright)
        painter.drawLine(middle.x(), rectangle.top(), middle.x(), rectangle.bottom());
    else
        painter.drawLine(rectangle.left(), middle.y(), rectangle.right(), middle.y());

    const int room = (upright ? rectangle.height() : rectangle.width()) - state.disc - 1;
    const int along = static_cast<int>((upright ? 1 - state.fraction : state.fraction) * room + 0.5);
    const QPoint corner = upright ? QPoint(middle.x() - state.disc / 2, rectangle.top() + along)
                                  : QPoint(rectangle.left() + along, middle.y() - state.disc / 2);
    drawDisc(painter, gdi, corner, state.disc, state.enabled ? Role::selectedButton : Role::disabledButton);
}
}  // namespace Gui::Look
