#include "gui/screens/setup/BankField.h"

#include <QFileInfo>
#include <QPushButton>

#include "api/Bank.h"
#include "api/OrvGuiIF.h"
#include "gui/framework/EditBox.h"
#include "gui/screens/setup/SettingTables.h"

namespace Gui::Setup
{
BankField::BankField(OrvGuiIF& owner, QBoxLayout& page) : FileField(owner, DEFAULT_BANK, page)
{
    auto& current = addButton(EditBox::tr("CURRENT BANK"), EditBox::tr("Current bank as default"),
                              EditBox::tr("Takes the bank that is loaded now."));
    QObject::connect(&current, &QPushButton::clicked, edit, [this] { show(getUsual()); });
}

QString BankField::getUsual() const { return QString::fromStdString(gui.getCurrentBank().name); }

QString BankField::getQuestion() const
{
    if (getShown().isEmpty()) return {};
    return EditBox::tr("\"%1\" becomes the default bank and is loaded now: what was not saved is lost. Continue?")
        .arg(QFileInfo(getShown()).fileName());
}
}  // namespace Gui::Setup
