#include "gui/framework/PopupMenu.h"

#include <QAction>

#include "gui/framework/Properties.h"

namespace Gui
{
namespace
{
QString withoutMnemonic(QString text) { return text.replace(QLatin1Char('&'), QLatin1String("&&")); }
}  // namespace

PopupMenu::PopupMenu(QWidget* parent) : QMenu(parent)
{
    connect(this, &QMenu::triggered, this, [this](QAction* chosen) {
        if (onChosen) onChosen(chosen->data().toInt());
    });
}

void PopupMenu::clear()
{
    for (const QAction* action : actions()) delete action->menu();
    QMenu::clear();
}

QAction& PopupMenu::addItem(const Item& item)
{
    const int id = item.id < 0 ? static_cast<int>(actions().size()) : item.id;
    QAction* action = addAction(withoutMnemonic(item.text));
    action->setData(id);
    action->setEnabled(item.enabled);
    if (item.brush) action->setProperty(Property::COLOR, *item.brush);
    QFont font;  // properties that are not set are those of the menu
    font.setBold(item.useBold);
    action->setFont(font);
    return *action;
}

PopupMenu& PopupMenu::addSubMenu(const QString& text, bool enabled)
{
    auto* menu = new PopupMenu(this);
    menu->setTitle(withoutMnemonic(text));
    QAction* action = addMenu(menu);
    action->setEnabled(enabled);
    action->setData(-1);
    return *menu;
}

void PopupMenu::setSelected(int id) { markSelected(id); }

QAction* PopupMenu::markSelected(int id)
{
    QAction* selected = nullptr;
    for (QAction* action : actions()) {
        auto* menu = dynamic_cast<PopupMenu*>(action->menu());
        const bool here = menu == nullptr ? action->data().toInt() == id : menu->markSelected(id) != nullptr;
        if (here) selected = action;
        Property::set(*action, Property::SELECTED, here);
        action->setCheckable(here && menu == nullptr);
        action->setChecked(here && menu == nullptr);
    }
    return selected;
}

void PopupMenu::show(const QPoint& globalPosition)
{
    popup(globalPosition);
    for (QAction* action : actions())
        if (action->isChecked()) setActiveAction(action);
}

void PopupMenu::showBelow(const QWidget& control) { show(control.mapToGlobal(QPoint(0, control.height()))); }
}  // namespace Gui
