#pragma once

#include <QAccessible>
#include <QRect>
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

/// A control that paints rows, which a screen reader reads as the items of a list. Rows are numbered from 0.
class AccessibleList : public AccessibleControl
{
public:
    virtual int getRowCount() const = 0;
    virtual QString getRowName(int row) const = 0;
    /// In the control.
    virtual QRect getRowPlace(int row) const = 0;
    virtual bool isRowSelected(int row) const = 0;
    /// The row that keys change, -1 for none.
    virtual int getCurrentRow() const = 0;
    /// Has the effect of a click.
    virtual void selectRow(int row) = 0;

    QAccessible::Role getAccessibleRole() const override { return QAccessible::List; }
    /// The name of the current row.
    QString getAccessibleValue() const override;
    bool isPressable() const override { return false; }

protected:
    /// Notifies screen readers that the current row is another one, or is called otherwise.
    static void currentRowChanged(QWidget& control, const AccessibleList& list);
};
}  // namespace Gui
