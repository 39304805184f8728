#pragma once

#include "gui/screens/setup/EditField.h"

class QBoxLayout;

namespace Gui::Setup
{
struct Number;

/// A row with a number to type. A text that is not a number within the limits is a fault.
class NumberField final : public EditField
{
public:
    /// Both must outlive it.
    NumberField(OrvGuiIF& owner, const Number& numberRow, QBoxLayout& page);

    QString findFault() const override;
    QString getQuestion() const override;
    void post() const override;

private:
    QString getKnown() const override;

    const Number& row;
};
}  // namespace Gui::Setup
