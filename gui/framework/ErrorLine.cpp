#include "gui/framework/ErrorLine.h"

#include <QAccessible>

#include "gui/framework/Properties.h"

namespace Gui
{
ErrorLine::ErrorLine(QWidget* parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    Property::setColour(*this, GdiManager::Role::frame);
    hide();
}

void ErrorLine::showError(const QString& text)
{
    setText(text);
    setVisible(!text.isEmpty());
    if (text.isEmpty() || !QAccessible::isActive()) return;
    QAccessibleEvent event(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}
}  // namespace Gui
