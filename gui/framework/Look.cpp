#include "gui/framework/Look.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPolygonF>
#include <QTransform>
#include <algorithm>
#include <cmath>

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
        return own.typeId() == QMetaType::Int ? gdi.getColour(static_cast<Role>(own.toInt())) : own.value<QColor>();
    return gdi.getColour(state.pressed ? Role::selectedButton : Role::unselectedButton);
}

QColor inkOf(const GdiManager& gdi, const ButtonState& state, const QWidget* control)
{
    if (isMarked(control, Property::SELECTED)) return gdi.getColour(Role::selectedButton);
    return WindowsLib::toQColor(state.pressed && !state.enabled ? GdiManager::WHITE : GdiManager::BLACK);
}

/// Whole device pixels on all sides wherever the rectangle is, so that no side is lost or blurred.
void drawRing(QPainter& painter, const QRect& rectangle, double thickness, const QColor& colour)
{
    const qreal ratio = painter.device()->devicePixelRatioF();
    const qreal line = std::max(1.0, std::floor(thickness * ratio)) / ratio;
    const QRectF all(rectangle);
    painter.fillRect(QRectF(all.left(), all.top(), all.width(), line), colour);
    painter.fillRect(QRectF(all.left(), all.bottom() - line, all.width(), line), colour);
    painter.fillRect(QRectF(all.left(), all.top(), line, all.height()), colour);
    painter.fillRect(QRectF(all.right() - line, all.top(), line, all.height()), colour);
}

void fillButton(QPainter& painter, const GdiManager& gdi, const QRect& rectangle, const ButtonState& state,
                const QWidget* control)
{
    if (state.isSwitch && !state.pressed && state.enabled) {
        painter.fillRect(rectangle, gdi.getColour(Role::background));
        return drawFrame(painter, gdi, rectangle, true);
    }
    if (!isMarked(control, Property::GRAYTEXT)) return painter.fillRect(rectangle, fillOf(gdi, state, control));
    painter.fillRect(rectangle, gdi.getColour(Role::unselectedButton));
    painter.fillRect(rectangle, QBrush(gdi.getColour(Role::selectedButton), Qt::Dense4Pattern));
}
}  // namespace

void drawFrame(QPainter& painter, const GdiManager& gdi, const QRect& rectangle, bool enabled)
{
    drawRing(painter, rectangle, gdi.getScale(),
             gdi.getColour(enabled ? Role::controlBorder : Role::controlBorderDisabled));
}

void drawFocus(QPainter& painter, const GdiManager& gdi, const QRect& rectangle)
{
    drawRing(painter, rectangle, 2 * gdi.getScale(), gdi.getColour(Role::text));
}

void drawMetal(QPainter& painter, const QRect& rectangle)
{
    QLinearGradient metal(rectangle.topLeft(), rectangle.bottomLeft());
    metal.setColorAt(0, WindowsLib::toQColor(GdiManager::LIGHT_GREY));
    metal.setColorAt(1, WindowsLib::toQColor(GdiManager::DARK_DARK_GREY));
    painter.fillRect(rectangle, metal);
}

QColor inkOn(const QColor& fill)
{
    constexpr double MIDDLE = 0.18;  // both contrasts are equal there
    const auto linear = [](double part) { return std::pow(part, 2.2); };
    const double luminance =
        0.2126 * linear(fill.redF()) + 0.7152 * linear(fill.greenF()) + 0.0722 * linear(fill.blueF());
    return luminance > MIDDLE ? Qt::black : Qt::white;
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
    const bool isLow = rectangle.height() < gdi.px(SMALL_HEIGHT);
    if (isLow || rectangle.width() < gdi.px(SMALL_WIDTH))
        painter.setFont(gdi.getFont(isPlus || isMinus ? FontRole::font5 : FontRole::font3));
    const bool isOutline = state.isSwitch && !state.pressed && state.enabled;
    painter.setPen(isOutline ? gdi.getColour(Role::label) : inkOf(gdi, state, control));
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
