#pragma once

#include <QColor>
#include <QMenu>
#include <functional>
#include <optional>

namespace Gui
{
/// A menu drawn by the skin. `show` returns at once; the choice is reported later. Typing selects the item whose text
/// begins so, or has a word that does. The GUI thread.
class PopupMenu : public QMenu
{
public:
    struct Item {
        QString text{};
        bool enabled = true;
        bool useBold = false;
        std::optional<QColor> brush{};  ///< in place of the role's
        int id = -1;                    ///< -1 for its index in the menu
    };

    explicit PopupMenu(QWidget* parent = nullptr);

    /// The id of the item that was chosen, here or in a submenu. Not called if the menu closes without a choice.
    std::function<void(int id)> onChosen;

    void clear();
    /// The text is shown as it is, ampersands included.
    QAction& addItem(const Item& item);
    QAction& addItem(const QString& text) { return addItem(Item{text}); }
    /// Owned by this menu. Its items need ids of their own.
    PopupMenu& addSubMenu(const QString& text, bool enabled = true);

    /// Marks one item as the current one, in its submenu if it is there; an unknown id marks none.
    void setSelected(int id);

    /// With its top left corner there, or as near as it fits on the screen.
    void show(const QPoint& globalPosition);
    void showBelow(const QWidget& control);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    QAction* markSelected(int id);
    QAction* findItem(const QString& text) const;

    QString typed;  // since it was shown, or since nothing matched
};
}  // namespace Gui
