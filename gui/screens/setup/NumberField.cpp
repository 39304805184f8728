#include "gui/screens/setup/NumberField.h"

#include <QBoxLayout>
#include <QLabel>

#include "api/OrvGuiIF.h"
#include "api/OrvMessageManager.h"
#include "backend/files/RegistrySettings.h"
#include "gui/framework/EditBox.h"
#include "gui/framework/Properties.h"
#include "gui/framework/Skinner.h"
#include "gui/screens/setup/SettingTables.h"
#include "gui/screens/setup/SetupRow.h"

namespace Gui::Setup
{
namespace
{
constexpr int WIDTH = 70;
}

NumberField::NumberField(OrvGuiIF& owner, const Number& numberRow, QBoxLayout& page)
    : EditField(owner, numberRow.name, numberRow.help), row(numberRow)
{
    edit->setFixedWidth(WIDTH);
    Property::set(*edit, Property::NUMBERS_ONLY, true);
    Skinner::setMinMax(*edit, row.lowest, row.highest);
    SetupRow line(page, EditBox::tr(row.label), *edit);
    line.addBefore(EditBox::tr(row.before));
    line.addAfter(EditBox::tr(row.after));
}

QString NumberField::findFault() const
{
    bool isNumber = false;
    const int number = getShown().toInt(&isNumber);
    if (isNumber && number >= row.lowest && number <= row.highest) return {};
    return EditBox::tr("%1 must be between %2%4 and %3%4")
        .arg(EditBox::tr(row.name))
        .arg(row.lowest)
        .arg(row.highest)
        .arg(EditBox::tr(row.unit));
}

QString NumberField::getQuestion() const { return EditBox::tr(row.question); }

void NumberField::post() const { row.post(gui.getOrvMessageManager(), edit->getNumber() * row.scale); }

QString NumberField::getKnown() const { return QString::number((gui.getRegistrySettings().*row.get)() / row.scale); }
}  // namespace Gui::Setup
