#include "gui/screens/joystick/AxisCurve.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>

#include "api/GuiContext.h"
#include "gui/framework/GdiManager.h"
#include "gui/framework/Look.h"
#include "gui/framework/Properties.h"

namespace Gui::Joystick
{
using Backend::Joystick::AxisFunction;
using Backend::Joystick::AxisMode;
using Role = GdiManager::Role;

namespace
{
constexpr int HIGHEST = 65535;
constexpr int POINTS = 128;
constexpr int TEXT_LINE = 16;  // logical pixels
}  // namespace

AxisCurve::AxisCurve(GuiContext& owner, QWidget* parent) : QWidget(parent), context(owner)
{
    setAccessibleName(tr("Curve of the axis"));
    Property::setHelp(*this, tr("What the axis sends, from one end of its way at the left to the other at the right. A "
                                "negative offset cuts off a part at both ends, so that the limits are reached earlier; "
                                "a positive one changes nothing."));
}

void AxisCurve::show(const AxisFunction& shown)
{
    const std::optional<AxisFunction> now = shown.midiMessage.isValid() ? std::optional(shown) : std::nullopt;
    if (now == function) return;
    function = now;
    update();
    accessibleValueChanged(*this, getAccessibleValue());
}

QString AxisCurve::getAccessibleValue() const
{
    if (!function) return tr("No event");
    const auto at = [this](int quarter) {
        return QString::number(function->scaled(quarter * (HIGHEST + 1) / 4, AxisMode::raw));
    };
    return tr("%1 at one end, %2 at a quarter, %3 in the middle, %4 at three quarters, %5 at the other end")
        .arg(at(0), at(1), at(2), at(3), at(4));
}

void AxisCurve::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const GdiManager& gdi = context.getGdiManager();
    const QRect place = rect().adjusted(gdi.px(4), 0, -gdi.px(4), -gdi.px(TEXT_LINE));
    Look::drawFrame(painter, gdi, place, function.has_value());
    painter.setFont(gdi.getFont(GdiManager::FontRole::font9));
    painter.setPen(gdi.getColour(Role::label));
    const QRect texts(place.left(), place.bottom() + 1, place.width(), gdi.px(TEXT_LINE));
    if (!function) return painter.drawText(texts, Qt::AlignCenter, tr("No event"));
    const auto valueAt = [this](int position) { return function->scaled(position, AxisMode::raw); };
    painter.drawText(texts, Qt::AlignLeft | Qt::AlignVCenter, QString::number(valueAt(0)));
    painter.drawText(texts, Qt::AlignHCenter | Qt::AlignVCenter, QString::number(valueAt(HIGHEST / 2 + 1)));
    painter.drawText(texts, Qt::AlignRight | Qt::AlignVCenter, QString::number(valueAt(HIGHEST)));

    const QRectF inside = QRectF(place).adjusted(gdi.px(4), gdi.px(4), -gdi.px(4), -gdi.px(4));
    const auto [low, high] = std::minmax(function->min, function->max);
    QPainterPath path;
    for (int point = 0; point <= POINTS; ++point) {
        const double span = std::max(1, high - low);
        const QPointF to(inside.left() + inside.width() * point / POINTS,
                         inside.bottom() - inside.height() * (valueAt(point * HIGHEST / POINTS) - low) / span);
        point == 0 ? path.moveTo(to) : path.lineTo(to);
    }
    painter.setPen(QPen(gdi.getColour(Role::text), gdi.px(2)));
    painter.drawPath(path);
}
}  // namespace Gui::Joystick
