#include "gui/screens/setup/SwitchField.h"

#include <QBoxLayout>
#include <QCheckBox>

#include "api/OrvGuiIF.h"
#include "backend/files/RegistrySettings.h"
#include "gui/framework/Properties.h"
#include "gui/framework/Switches.h"

namespace Gui::Setup
{
SwitchField::SwitchField(OrvGuiIF& owner, const Switch& switchRow, QBoxLayout& page)
    : gui(owner), row(switchRow), box(new QCheckBox(QCheckBox::tr(switchRow.name)))
{
    box->setAccessibleName(box->text());
    Property::setHelp(*box, QCheckBox::tr(row.help));
    page.addWidget(box, 0, Qt::AlignLeft);
}

void SwitchField::post() const { row.post(gui.getOrvMessageManager(), box->isChecked()); }

QWidget& SwitchField::getControl() const { return *box; }

bool SwitchField::getKnown() const { return (gui.getRegistrySettings().*row.get)(); }

bool SwitchField::getShown() const { return box->isChecked(); }

void SwitchField::show(const bool& on) { box->setChecked(on); }
}  // namespace Gui::Setup
