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
struct Number;

/// A row with a number to type. A text that is not a number within the limits is a fault.
class NumberField final : public ValueField<QString>
{
public:
    /// Both must outlive it.
    NumberField(OrvGuiIF& owner, const Number& numberRow, QBoxLayout& page);

    QString findFault() const override;
    QString getQuestion() const override;
    void post() const override;
    QWidget& getControl() const override;

private:
    QString getKnown() const override;
    QString getShown() const override;
    void show(const QString& text) override;

    OrvGuiIF& gui;
    const Number& row;
    EditBox* edit;
};
}  // namespace Gui::Setup
