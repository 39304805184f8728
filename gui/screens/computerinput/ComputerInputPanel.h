#pragma once

#include "gui/framework/Panel.h"

namespace Gui
{
class OrvGuiIF;
}

namespace Gui::ComputerInput
{
/// The picture of the computer's keyboard.
class ComputerInputPanel final : public Panel
{
public:
    ComputerInputPanel(OrvGuiIF& owner, Panel* around);

private:
    OrvGuiIF& gui;
};
}  // namespace Gui::ComputerInput
