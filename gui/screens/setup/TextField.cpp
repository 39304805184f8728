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
    : gui(owner), row(textRow), edit(new EditBox)
{
    edit->setFixedWidth(TEXT_WIDTH);
    edit->setReadOnly(row.post == nullptr);
    edit->setAccessibleName(EditBox::tr(row.name));
    Property::setHelp(*edit, EditBox::tr(row.help));
    Property::set(*edit, Property::TEXT, true);
    Property::set(*edit, Property::NOWHEEL, true);
    SetupRow(page, EditBox::tr(row.label), *edit);
}

QString TextField::findFault() const { return QString::fromStdString(row.findFault(getShown().toStdString())); }

void TextField::post() const { row.post(gui.getOrvMessageManager(), getShown().toStdString()); }

QWidget& TextField::getControl() const { return *edit; }

QString TextField::getKnown() const { return QString::fromStdString(row.get(gui)).trimmed(); }

QString TextField::getShown() const { return edit->text().trimmed(); }

void TextField::show(const QString& text)
{
    edit->setText(text);
    edit->setCursorPosition(0);
}
}  // namespace Gui::Setup
