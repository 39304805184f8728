#pragma once

#include <QAccessible>
#include <QString>

class QWidget;

namespace Gui
{
/// What a control reports to a screen reader where the role of its Qt base class does not fit.
class AccessibleControl
{
public:
    AccessibleControl();
    virtual ~AccessibleControl() = default;

    virtual QAccessible::Role getAccessibleRole() const = 0;
    virtual QString getAccessibleValue() const = 0;
    /// Whether it offers a press action.
    virtual bool isPressable() const { return true; }
    /// Has the effect of a click.
    virtual void pressAccessible() {}

protected:
    /// Notifies screen readers of a new value.
    static void accessibleValueChanged(QWidget& control, const QString& value);
};
}  // namespace Gui
