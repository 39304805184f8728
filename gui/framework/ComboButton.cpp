#include "gui/framework/ComboButton.h"

#include "gui/framework/PopupMenu.h"

namespace Gui
{
ComboButton::ComboButton(GuiContext& guiContext, int buttonId, const QStringList& valueTexts, const QRect& rectangle,
                         QWidget* parent)
    : Button(guiContext, buttonId, {}, rectangle, parent), menu(new PopupMenu(this)), values(valueTexts)
{
    connect(menu, &QMenu::aboutToHide, this, [this] { setPressed(false); });
    menu->onChosen = [this](int index) {
        setSelectedIndex(index);
        if (onChange) onChange(index);
    };
}

void ComboButton::setSelectedIndex(int index)
{
    selectedIndex = index >= 0 && index < values.size() ? index : -1;
    setText(values.value(selectedIndex));
    accessibleValueChanged(*this, text());
}

void ComboButton::mouseDown()
{
    setPressed(true);
    menu->clear();
    for (const QString& value : values) menu->addItem(value);
    menu->setSelected(selectedIndex);
    menu->showBelow(*this);
}
}  // namespace Gui
