#pragma once

#include "gui/screens/setup/SettingField.h"

class QBoxLayout;
class QCheckBox;

namespace Gui
{
class OrvGuiIF;
struct Switch;
}  // namespace Gui

namespace Gui::Setup
{
/// A row with a check box.
class SwitchField final : public ValueField<bool>
{
public:
    /// Both must outlive it.
    SwitchField(OrvGuiIF& owner, const Switch& switchRow, QBoxLayout& page);

    void post() const override;
    QWidget& getControl() const override;

private:
    bool getKnown() const override;
    bool getShown() const override;
    void show(const bool& on) override;

    OrvGuiIF& gui;
    const Switch& row;
    QCheckBox* box;
};
}  // namespace Gui::Setup
