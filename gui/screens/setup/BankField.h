#pragma once

#include "gui/screens/setup/FileField.h"

namespace Gui::Setup
{
/// The bank that is loaded at the start, which can also be the current one. An empty path means the bank in the banks
/// folder.
class BankField final : public FileField
{
public:
    BankField(OrvGuiIF& owner, QBoxLayout& page);

    QString getQuestion() const override;

private:
    QString getUsual() const override;
};
}  // namespace Gui::Setup
