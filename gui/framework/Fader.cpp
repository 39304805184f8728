#include "gui/framework/Fader.h"

#include <QPainter>
#include <algorithm>

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
    constexpr int DISC = 14;  // logical pixels; of a broad one, more
    constexpr int LARGEST_DISC = 24;
    QPainter painter(this);
    GdiManager& gdi = getContext().getGdiManager();
    const int across = orientation() == Qt::Vertical ? width() : height();
    const int disc = std::clamp(across / 2, gdi.px(DISC), gdi.px(LARGEST_DISC));
    Look::drawFader(painter, gdi, rect(), {orientation(), getFraction(), disc, isEnabled()});
    if (hasFocus()) Look::drawFocus(painter, gdi, rect());
}
}  // namespace Gui
