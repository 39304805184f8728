#include "gui/screens/system/KeyBadge.h"

#include <QPainter>

#include "gui/framework/Look.h"

namespace Gui::System
{
using Role = GdiManager::Role;

void KeyBadge::show(KeyTarget newTarget)
{
    if (newTarget == target) return;
    target = newTarget;
    stateChanged();
}

QString KeyBadge::getAccessibleValue() const
{
    switch (target) {
        case KeyTarget::music:
            return tr("KEYS PLAY");
        case KeyTarget::text:
            return tr("TYPING");
        default:
            return tr("ELSEWHERE");
    }
}

/// Filled while keys play, an outline otherwise.
void KeyBadge::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const bool plays = target == KeyTarget::music;
    painter.fillRect(rect(), gdi.getColour(plays ? Role::selectedButton : Role::background));
    if (!plays) Look::drawFrame(painter, gdi, rect(), true);
    painter.setPen(gdi.getColour(plays ? Role::background : Role::text));
    painter.setFont(gdi.getFont(GdiManager::FontRole::font7));
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextSingleLine, getAccessibleValue());
}
}  // namespace Gui::System
