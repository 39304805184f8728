#include "gui/framework/PopupMenu.h"

#include <QAction>
#include <QKeyEvent>

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

void PopupMenu::showEvent(QShowEvent* event)
{
    typed.clear();
    QMenu::showEvent(event);
}

void PopupMenu::keyPressEvent(QKeyEvent* event)
{
    const QString text = event->text();
    const bool chooses = typed.isEmpty() && text == QLatin1String(" ");
    if (text.isEmpty() || !text.front().isPrint() || chooses) return QMenu::keyPressEvent(event);
    QAction* found = findItem(typed + text);
    typed = found != nullptr ? typed + text : text;
    if (found == nullptr) found = findItem(text);
    if (found != nullptr) setActiveAction(found);
}

/// The first one that begins with `text`, or else has a word that does; null if there is none.
QAction* PopupMenu::findItem(const QString& text) const
{
    QAction* other = nullptr;
    for (QAction* action : actions()) {
        if (!action->isEnabled()) continue;
        if (action->text().startsWith(text, Qt::CaseInsensitive)) return action;
        if (other == nullptr && action->text().contains(' ' + text, Qt::CaseInsensitive)) other = action;
    }
    return other;
}

void PopupMenu::showBelow(const QWidget& control) { show(control.mapToGlobal(QPoint(0, control.height()))); }
}  // namespace Gui
