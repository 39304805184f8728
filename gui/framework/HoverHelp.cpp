#include "gui/framework/HoverHelp.h"

#include <QEvent>
#include <QWidget>

#include "gui/framework/GuiContext.h"

namespace Gui
{
HoverHelp::HoverHelp(GuiContext& guiContext, QWidget& control) : QObject(&control), context(guiContext)
{
    control.installEventFilter(this);
}

bool HoverHelp::eventFilter(QObject* control, QEvent* event)
{
    if (event->type() == QEvent::Enter || event->type() == QEvent::FocusIn)
        context.displayHelp(static_cast<QWidget&>(*control));
    return false;
}
}  // namespace Gui
