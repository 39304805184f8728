#include "gui/framework/AccessibleControl.h"

#include <QAccessibleWidget>
#include <QStringList>
#include <QWidget>

namespace Gui
{
namespace
{
class AccessibleWidget final : public QAccessibleWidget
{
public:
    AccessibleWidget(QWidget& widget, AccessibleControl& ownControl)
        : QAccessibleWidget(&widget, ownControl.getAccessibleRole()), control(ownControl)
    {
    }

    QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Value ? control.getAccessibleValue() : QAccessibleWidget::text(kind);
    }

    QStringList actionNames() const override
    {
        const QStringList others = QAccessibleWidget::actionNames();
        return control.isPressable() ? QStringList{pressAction()} + others : others;
    }

    void doAction(const QString& action) override
    {
        if (action != pressAction()) return QAccessibleWidget::doAction(action);
        if (widget()->isEnabled()) control.pressAccessible();
    }

private:
    AccessibleControl& control;
};

QAccessibleInterface* make(const QString&, QObject* object)
{
    auto* control = dynamic_cast<AccessibleControl*>(object);
    return control == nullptr ? nullptr : new AccessibleWidget(static_cast<QWidget&>(*object), *control);
}
}  // namespace

AccessibleControl::AccessibleControl()
{
    static const bool installed = (QAccessible::installFactory(make), true);
    static_cast<void>(installed);
}

void AccessibleControl::accessibleValueChanged(QWidget& control, const QString& value)
{
    if (!QAccessible::isActive()) return;
    QAccessibleValueChangeEvent event(&control, value);
    QAccessible::updateAccessibility(&event);
}
}  // namespace Gui
