#pragma once

#include <QTimer>
#include <functional>
#include <vector>

#include "gui/framework/AccessibleControl.h"
#include "gui/framework/EditBox.h"
#include "gui/framework/Wheel.h"

namespace Gui
{
class GuiContext;
class PopupMenu;

/// A line with a list of entries behind it, which the wheel steps through and a click opens as a menu. One that is read
/// only leaves the keys to what is around it: what nobody there takes opens it and steps it. The GUI thread.
class ComboBox : public EditBox, public AccessibleControl
{
public:
    enum class Typing { readOnly, editable };

    struct Entry {
        QString text{};         ///< in the menu
        QString displayText{};  ///< in the line once it is chosen; the same if empty
        bool enabled = true;    ///< one that is not cannot be chosen
    };

    ComboBox(GuiContext& context, Typing typing, QWidget* parent = nullptr);

    /// Asked before an entry is chosen by the user: true refuses, and the old one stays.
    std::function<bool(int index)> onValidate;
    /// The user chose an entry. What is typed comes by `textEdited`.
    std::function<void(int index)> onChange;

    /// Nothing is selected then.
    void setEntries(std::vector<Entry> newEntries);
    void addEntry(Entry entry);
    const std::vector<Entry>& getEntries() const { return entries; }

    /// -1 for none, and for typed text that is no entry.
    int getSelectedIndex() const { return selectedIndex; }
    /// Without asking or telling anyone. An index without an entry selects none and blanks the line.
    void setSelectedIndex(int index);

    void openMenu();
    bool isMenuShowing() const { return menuShowing; }

    QAccessible::Role getAccessibleRole() const override { return QAccessible::ComboBox; }
    QString getAccessibleValue() const override { return text(); }
    void pressAccessible() override { openMenu(); }

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    QRect arrow() const;
    bool opensMenu(const QMouseEvent& event) const;
    void stepEntry(int direction);
    bool handleKey(const QKeyEvent& event);
    void choose(int index);
    void typed(const QString& text);

    GuiContext& guiContext;
    PopupMenu* menu;
    std::vector<Entry> entries;
    int selectedIndex = -1;
    bool menuShowing = false;
    QTimer menuGone;
    Wheel wheel;
};
}  // namespace Gui
