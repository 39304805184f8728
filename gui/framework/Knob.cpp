#include "gui/framework/Knob.h"

#include <QPainter>
#include <algorithm>

#include "api/GuiContext.h"
#include "gui/framework/GdiManager.h"
#include "gui/framework/Look.h"

namespace Gui
{
using Role = GdiManager::Role;

Knob::Knob(GuiContext& guiContext, QWidget* parent) : DragSlider(guiContext, Qt::Vertical, parent) {}

void Knob::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    GdiManager& gdi = getContext().getGdiManager();
    painter.fillRect(rect(), gdi.getColour(Role::background));
    const int diameter = std::min(width(), height()) - 5;
    if (diameter > 0) {
        const QPoint corner((width() - diameter) / 2, (height() - diameter) / 2);
        Look::drawDisc(painter, gdi, corner, diameter, isEnabled() ? Role::unselectedButton : Role::disabledButton);
        drawPointer(painter, diameter);
    }
    if (hasFocus()) Look::drawFocus(painter, gdi, rect());
}

void Knob::drawPointer(QPainter& painter, int diameter) const
{
    constexpr qreal LOWEST = -135;
    constexpr qreal TURN = 270;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate((width() - diameter) / 2 + diameter / 2.0, (height() - diameter) / 2 + diameter / 2.0);
    painter.rotate(LOWEST + TURN * getFraction());
    const GdiManager& gdi = getContext().getGdiManager();
    painter.setPen(QPen(gdi.getColour(isEnabled() ? Role::selectedButton : Role::background), 2));
    painter.drawLine(QPointF(0, -diameter / 2.0 + 1), QPointF(0, -diameter / 6.0));
    painter.restore();
}
}  // namespace Gui
