#include "gui/screens/system/RecordGauge.h"

#include <QPainter>

#include "gui/framework/Look.h"

namespace Gui::System
{
using Role = GdiManager::Role;

namespace
{
constexpr int LIGHT = 8;  // logical pixels
}

void RecordGauge::showFill(int percent)
{
    if (percent == fill) return;
    fill = percent;
    stateChanged();
}

void RecordGauge::showRecording(bool on)
{
    if (on == isRecording) return;
    isRecording = on;
    stateChanged();
}

QString RecordGauge::getAccessibleValue() const
{
    return isRecording ? tr("%1% full").arg(fill) : tr("off, %1% full").arg(fill);
}

void RecordGauge::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    QRectF bar = QRectF(rect()).adjusted(2, 2, -2, -2);
    bar.setWidth(bar.width() * fill / 100);
    painter.fillRect(bar, gdi.getColour(Role::greenPen));
    Look::drawFrame(painter, gdi, rect(), isEnabled());
    const int side = gdi.px(LIGHT);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(gdi.getColour(Role::controlBorder));
    painter.setBrush(isRecording ? QBrush(gdi.getColour(Role::frame)) : QBrush(Qt::NoBrush));
    painter.drawEllipse(QRectF(gdi.px(LIGHT), (height() - side) / 2 + 0.5, side - 1, side - 1));
    painter.setPen(gdi.getColour(Role::label));
    painter.setFont(gdi.getFont(GdiManager::FontRole::font9));
    painter.drawText(rect().adjusted(3 * side, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter,
                     isRecording ? tr("%1 % recorded").arg(fill) : tr("not recording"));
}
}  // namespace Gui::System
