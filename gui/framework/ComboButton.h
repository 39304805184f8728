#pragma once

#include <QStringList>
#include <functional>

#include "gui/framework/AccessibleControl.h"
#include "gui/framework/Button.h"

namespace Gui
{
class PopupMenu;

/// A button that shows its value and opens a menu of all values. The GUI thread.
class ComboButton final : public Button, public AccessibleControl
{
public:
    ComboButton(GuiContext& guiContext, int buttonId, const QStringList& valueTexts, const QRect& rectangle,
                QWidget* parent);

    /// The user chose a value.
    std::function<void(int index)> onChange;

    int getSelectedIndex() const { return selectedIndex; }
    /// Does not call `onChange`. An index without a value selects none, -1.
    void setSelectedIndex(int index);

    QAccessible::Role getAccessibleRole() const override { return QAccessible::ButtonMenu; }
    QString getAccessibleValue() const override { return values.value(selectedIndex); }
    void pressAccessible() override { mouseDown(); }

protected:
    void mouseDown() override;

private:
    PopupMenu* menu;
    QStringList values;
    int selectedIndex = -1;
};
}  // namespace Gui
