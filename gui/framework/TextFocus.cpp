#include "gui/framework/TextFocus.h"

#include <QAbstractScrollArea>
#include <QWidget>

namespace Gui
{
bool takesText(const QWidget* control)
{
    if (control == nullptr) return false;
    // Qt's text controls enable the input method, and only while they are writable.
    if (control->testAttribute(Qt::WA_InputMethodEnabled)) return true;
    const auto* area = qobject_cast<const QAbstractScrollArea*>(control->parentWidget());
    return area != nullptr && area->viewport() == control && area->testAttribute(Qt::WA_InputMethodEnabled);
}
}  // namespace Gui
