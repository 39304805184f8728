#pragma once

#include <QColor>
#include <QMenu>
#include <functional>
#include <optional>

namespace Gui
{
/// A menu drawn by the skin. It opens and returns at once; the choice comes later. The GUI thread.
class PopupMenu : public QMenu
{
public:
    struct Item {
        QString text{};
        bool enabled = true;
        bool useBold = false;
        std::optional<QColor> brush{};  ///< in place of the role's
        int id = -1;                    ///< -1 for its place in its menu, from 0
    };

    explicit PopupMenu(QWidget* parent = nullptr);

    /// The id of the item that was chosen, here or in a submenu. Nothing if the menu is left without a choice.
    std::function<void(int id)> onChosen;

    void clear();
    /// The text as it stands: an ampersand is one.
    QAction& addItem(const Item& item);
    QAction& addItem(const QString& text) { return addItem(Item{text}); }
    /// Owned by this one. Give its items ids of their own.
    PopupMenu& addSubMenu(const QString& text, bool enabled = true);

    /// Marks one item as the current one, in its submenu if it is there; an unknown id marks none.
    void setSelected(int id);

    /// With its corner there, or where it fits.
    void show(const QPoint& globalPosition);
    void showBelow(const QWidget& control);

private:
    QAction* markSelected(int id);
};
}  // namespace Gui
