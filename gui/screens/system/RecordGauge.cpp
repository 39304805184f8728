#include "gui/screens/system/RecordGauge.h"

#include <QPainter>

#include "gui/framework/Look.h"

namespace Gui::System
{
using Role = GdiManager::Role;

RecordGauge::RecordGauge(const GdiManager& manager, QWidget* parent) : QWidget(parent), gdi(manager) {}

void RecordGauge::showFill(int percent)
{
    if (percent == fill) return;
    fill = percent;
    update();
    accessibleValueChanged(*this, getAccessibleValue());
}

QString RecordGauge::getAccessibleValue() const { return tr("%1% full").arg(fill); }

void RecordGauge::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    QRectF bar = QRectF(rect()).adjusted(2, 2, -2, -2);
    bar.setWidth(bar.width() * fill / 100);
    painter.fillRect(bar, gdi.getColour(Role::unusedButton));
    Look::drawFrame(painter, gdi, rect(), isEnabled());
    painter.setPen(gdi.getColour(Role::text));
    painter.drawText(rect(), Qt::AlignCenter, getAccessibleValue());
}
}  // namespace Gui::System
