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

/// A line with a list of entries: the wheel and the arrow keys step through them, a click or Space opens them as a
/// menu, in which letters move to the next entry that begins with them. A read-only one passes every other key to its
/// parent, which plays it. The GUI thread.
class ComboBox : public EditBox, public AccessibleControl
{
public:
    enum class Typing { readOnly, editable };

    struct Entry {
        QString text{};         ///< in the menu
        QString displayText{};  ///< in the line once it is chosen; the same if empty
        bool enabled = true;    ///< whether it can be chosen
    };

    ComboBox(GuiContext& context, Typing typing, QWidget* parent = nullptr);

    /// Called before the user chooses an entry; true refuses it, and the old one stays.
    std::function<bool(int index)> onValidate;
    /// The user chose an entry. Typed text is reported by `textEdited`.
    std::function<void(int index)> onChange;

    /// Selects nothing.
    void setEntries(std::vector<Entry> newEntries);
    void addEntry(Entry entry);
    const std::vector<Entry>& getEntries() const { return entries; }

    /// -1 for none, and for typed text that is no entry.
    int getSelectedIndex() const { return selectedIndex; }
    /// Calls neither `onValidate` nor `onChange`. An index without an entry selects none and clears the line.
    void setSelectedIndex(int index);

    void openMenu();
    bool isMenuShowing() const { return menuShowing; }

    QAccessible::Role getAccessibleRole() const override { return QAccessible::ComboBox; }
    QString getAccessibleValue() const override { return text(); }
    void pressAccessible() override { openMenu(); }

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
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
