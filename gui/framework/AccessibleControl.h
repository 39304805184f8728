#pragma once

#include <QAccessible>
#include <QString>

class QWidget;

namespace Gui
{
/// What a control tells a screen reader, where the words of Qt for its base class would not fit.
class AccessibleControl
{
public:
    AccessibleControl();
    virtual ~AccessibleControl() = default;

    virtual QAccessible::Role getAccessibleRole() const = 0;
    virtual QString getAccessibleValue() const = 0;
    /// Whether it can be clicked on as a whole.
    virtual bool isPressable() const { return true; }
    /// What a click on it does; nothing for a picture.
    virtual void pressAccessible() {}

protected:
    /// Tells whoever listens that the value is another one.
    static void accessibleValueChanged(QWidget& control, const QString& value);
};
}  // namespace Gui
