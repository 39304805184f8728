#pragma once

#include "gui/screens/setup/SettingField.h"

class QBoxLayout;

namespace Gui
{
class EditBox;
class OrvGuiIF;
}  // namespace Gui

namespace Gui::Setup
{
/// The bank that is loaded at the start: its path is typed, chosen, or taken from the current bank. An empty path
/// means the bank in the banks folder.
class BankField final : public ValueField<QString>
{
public:
    BankField(OrvGuiIF& owner, QBoxLayout& page);

    QString findFault() const override;
    QString getQuestion() const override;
    void post() const override;
    QWidget& getControl() const override;

private:
    void addButtons(QBoxLayout& page);
    void choose();

    QString getKnown() const override;
    QString getShown() const override;
    void show(const QString& path) override;

    OrvGuiIF& gui;
    EditBox* edit;
};
}  // namespace Gui::Setup
