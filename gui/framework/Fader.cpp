#include "gui/framework/Fader.h"

#include <QPainter>

#include "api/GuiContext.h"
#include "gui/framework/Look.h"

namespace Gui
{
Fader::Fader(GuiContext& guiContext, Qt::Orientation direction, QWidget* parent)
    : DragSlider(guiContext, direction, parent)
{
}

QSize Fader::sizeHint() const
{
    constexpr QSize UPRIGHT{20, 100};
    return orientation() == Qt::Vertical ? UPRIGHT : UPRIGHT.transposed();
}

void Fader::paintEvent(QPaintEvent*)
{
    constexpr int DISC = 14;
    QPainter painter(this);
    GdiManager& gdi = getContext().getGdiManager();
    Look::drawFader(painter, gdi, rect(), {orientation(), getFraction(), DISC, isEnabled()});
    if (hasFocus()) Look::drawFocus(painter, gdi, rect());
}
}  // namespace Gui
