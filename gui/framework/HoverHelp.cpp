#include "gui/framework/HoverHelp.h"

#include <QEvent>
#include <QWidget>

#include "gui/framework/GuiContext.h"
#include "gui/framework/Properties.h"

namespace Gui
{
namespace
{
/// The control, or what it is a part of.
QWidget& helpedBy(QWidget& control)
{
    for (QWidget* widget = &control; widget != nullptr; widget = widget->parentWidget())
        if (widget->property(Property::HELP).isValid()) return *widget;
    return control;
}
}  // namespace

HoverHelp::HoverHelp(GuiContext& guiContext, QWidget& control) : QObject(&control), context(guiContext)
{
    control.installEventFilter(this);
}

bool HoverHelp::eventFilter(QObject* control, QEvent* event)
{
    if (event->type() == QEvent::Enter || event->type() == QEvent::FocusIn)
        context.displayHelp(helpedBy(static_cast<QWidget&>(*control)));
    return false;
}
}  // namespace Gui
