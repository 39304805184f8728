#pragma once

#include "gui/screens/setup/SettingField.h"

class QBoxLayout;

namespace Gui
{
class ComboBox;
class OrvGuiIF;
}  // namespace Gui

namespace Gui::Setup
{
struct Choice;

/// A row with a list of choices, which may change.
class ChoiceField final : public ValueField<int>
{
public:
    /// Both must outlive it.
    ChoiceField(OrvGuiIF& owner, const Choice& choiceRow, QBoxLayout& page);

    void follow() override;
    void post() const override;
    QWidget& getControl() const override;

private:
    int getKnown() const override;
    int getShown() const override { return shown; }
    void show(const int& value) override;

    OrvGuiIF& gui;
    const Choice& row;
    ComboBox* choices;
    int shown = -1;
};
}  // namespace Gui::Setup
