#include "gui/screens/setup/TextField.h"

#include <QBoxLayout>

#include "api/OrvGuiIF.h"
#include "gui/framework/EditBox.h"
#include "gui/framework/Properties.h"
#include "gui/screens/setup/SettingTables.h"
#include "gui/screens/setup/SetupRow.h"

namespace Gui::Setup
{
namespace
{
constexpr int TEXT_WIDTH = 230;
}

TextField::TextField(OrvGuiIF& owner, const Text& textRow, QBoxLayout& page)
    : EditField(owner, textRow.name, textRow.help), row(textRow)
{
    edit->setFixedWidth(TEXT_WIDTH);
    edit->setReadOnly(row.post == nullptr);
    Property::set(*edit, Property::NOWHEEL, true);
    SetupRow(page, EditBox::tr(row.label), *edit);
}

QString TextField::findFault() const { return QString::fromStdString(row.findFault(getShown().toStdString())); }

void TextField::post() const { row.post(gui.getOrvMessageManager(), getShown().toStdString()); }

QString TextField::getKnown() const { return QString::fromStdString(row.get(gui)).trimmed(); }

void TextField::show(const QString& text)
{
    EditField::show(text);
    edit->setCursorPosition(0);
}
}  // namespace Gui::Setup
