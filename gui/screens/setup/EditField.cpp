#include "gui/screens/setup/EditField.h"

#include "gui/framework/EditBox.h"
#include "gui/framework/Properties.h"

namespace Gui::Setup
{
EditField::EditField(OrvGuiIF& owner, const char* name, const char* help) : gui(owner), edit(new EditBox)
{
    edit->setAccessibleName(EditBox::tr(name));
    Property::setHelp(*edit, EditBox::tr(help));
    Property::set(*edit, Property::TEXT, true);
}

QWidget& EditField::getControl() const { return *edit; }

QString EditField::getShown() const { return edit->text().trimmed(); }

void EditField::show(const QString& text) { edit->setText(text); }
}  // namespace Gui::Setup
