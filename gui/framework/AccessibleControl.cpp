#include "gui/framework/AccessibleControl.h"

#include <QAccessibleWidget>
#include <QStringList>
#include <QWidget>
#include <map>

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

/// An item of a list. Its list has it as long as it lives itself.
class AccessibleRow final : public QAccessibleInterface, public QAccessibleActionInterface
{
public:
    AccessibleRow(QWidget& widget, AccessibleList& ownList, int index) : control(widget), list(ownList), row(index) {}

    bool isValid() const override { return row < list.getRowCount(); }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return parent()->window(); }
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(&control); }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    int getRow() const { return row; }

    QAccessible::Role role() const override { return QAccessible::ListItem; }
    QString text(QAccessible::Text kind) const override
    {
        return isValid() && kind == QAccessible::Name ? list.getRowName(row) : QString();
    }
    void setText(QAccessible::Text, const QString&) override {}
    QRect rect() const override
    {
        const QRect place = isValid() ? list.getRowPlace(row) : QRect();
        return {control.mapToGlobal(place.topLeft()), place.size()};
    }
    QAccessible::State state() const override
    {
        QAccessible::State state;
        state.invalid = !isValid();
        state.selectable = state.focusable = true;
        state.selected = isValid() && list.isRowSelected(row);
        state.focused = control.hasFocus() && list.getCurrentRow() == row;
        return state;
    }

    void* interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
    }
    QStringList actionNames() const override { return {pressAction()}; }
    void doAction(const QString& action) override
    {
        if (isValid() && action == pressAction()) list.selectRow(row);
    }
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

private:
    QWidget& control;
    AccessibleList& list;
    const int row;
};

/// Makes its rows when they are asked for, and keeps them.
class AccessibleListWidget final : public QAccessibleWidget
{
public:
    AccessibleListWidget(QWidget& widget, AccessibleList& ownList)
        : QAccessibleWidget(&widget, ownList.getAccessibleRole()), list(ownList)
    {
    }
    ~AccessibleListWidget() override
    {
        for (const auto& [row, id] : rows) QAccessible::deleteAccessibleInterface(id);
    }

    QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Value ? list.getAccessibleValue() : QAccessibleWidget::text(kind);
    }
    int childCount() const override { return list.getRowCount(); }
    int indexOfChild(const QAccessibleInterface* child) const override
    {
        const auto* const row = dynamic_cast<const AccessibleRow*>(child);
        return row == nullptr ? -1 : row->getRow();
    }
    QAccessibleInterface* child(int row) const override
    {
        if (row < 0 || row >= list.getRowCount()) return nullptr;
        const auto known = rows.find(row);
        if (known != rows.end()) return QAccessible::accessibleInterface(known->second);
        auto* const made = new AccessibleRow(*widget(), list, row);
        rows.emplace(row, QAccessible::registerAccessibleInterface(made));
        return made;
    }
    QAccessibleInterface* childAt(int x, int y) const override
    {
        const QPoint place = widget()->mapFromGlobal(QPoint(x, y));
        for (int row = 0; row < list.getRowCount(); ++row)
            if (list.getRowPlace(row).contains(place)) return child(row);
        return nullptr;
    }
    QAccessibleInterface* focusChild() const override
    {
        return widget()->hasFocus() ? child(list.getCurrentRow()) : nullptr;
    }

private:
    AccessibleList& list;
    mutable std::map<int, QAccessible::Id> rows;
};

QAccessibleInterface* make(const QString&, QObject* object)
{
    if (auto* list = dynamic_cast<AccessibleList*>(object))
        return new AccessibleListWidget(static_cast<QWidget&>(*object), *list);
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

QString AccessibleList::getAccessibleValue() const
{
    return getCurrentRow() < 0 ? QString() : getRowName(getCurrentRow());
}

void AccessibleList::currentRowChanged(QWidget& control, const AccessibleList& list)
{
    if (!QAccessible::isActive()) return;
    accessibleValueChanged(control, list.getAccessibleValue());
    if (!control.hasFocus()) return;
    QAccessibleEvent focus(&control, QAccessible::Focus);
    focus.setChild(list.getCurrentRow());
    QAccessible::updateAccessibility(&focus);
}
}  // namespace Gui
