#include "gui/screens/setup/ChoiceField.h"

#include <algorithm>

#include "api/OrvGuiIF.h"
#include "gui/framework/ComboBox.h"
#include "gui/framework/Properties.h"
#include "gui/screens/setup/SettingTables.h"
#include "gui/screens/setup/SetupRow.h"

namespace Gui::Setup
{
ChoiceField::ChoiceField(OrvGuiIF& owner, const Choice& choiceRow, QBoxLayout& page)
    : gui(owner), row(choiceRow), choices(new ComboBox(owner, ComboBox::Typing::readOnly))
{
    choices->setAccessibleName(ComboBox::tr(row.name));
    Property::setHelp(*choices, ComboBox::tr(row.help));
    Property::set(*choices, Property::TEXT, true);
    choices->setFixedWidth(row.width);
    choices->onChange = [this](int index) { shown = index; };
    SetupRow(page, ComboBox::tr(row.label), *choices);
}

void ChoiceField::follow()
{
    choices->setEntries(row.getEntries(gui));
    ValueField::follow();
    show(shown);
}

void ChoiceField::post() const { row.post(gui.getOrvMessageManager(), shown); }

QWidget& ChoiceField::getControl() const { return *choices; }

int ChoiceField::getKnown() const { return row.get(gui); }

void ChoiceField::show(const int& value)
{
    shown = value;
    choices->setSelectedIndex(value);
    if (choices->getSelectedIndex() < 0) choices->setText(QString::fromStdString(row.describe(gui, value)));
}
}  // namespace Gui::Setup
