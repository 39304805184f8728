#include "gui/framework/WidgetTree.h"

#include <QWidget>

namespace Gui
{
bool isWithin(const QWidget& widget, const QWidget& ancestor)
{
    const QWidget* inner = &widget;
    while (inner != nullptr && inner != &ancestor) inner = inner->parentWidget();
    return inner != nullptr;
}
}  // namespace Gui
