#pragma once

#include "gui/screens/setup/SettingField.h"

namespace Gui
{
class EditBox;
class OrvGuiIF;
}  // namespace Gui

namespace Gui::Setup
{
/// A field whose value is typed into a line. Spaces at its ends do not count.
class EditField : public ValueField<QString>
{
public:
    QWidget& getControl() const override;

protected:
    /// `owner` must outlive it. Name and help are translated here.
    EditField(OrvGuiIF& owner, const char* name, const char* help);

    QString getShown() const override;
    void show(const QString& text) override;

    OrvGuiIF& gui;
    EditBox* const edit;  // owned by the dialog
};
}  // namespace Gui::Setup
