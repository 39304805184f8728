#pragma once

#include "gui/framework/Panel.h"

namespace Gui
{
class OrvGuiIF;
}

namespace Gui::Display
{
/// The running log of what is played.
class DisplayPanel final : public Panel
{
public:
    DisplayPanel(OrvGuiIF& owner, Panel* around);

private:
    OrvGuiIF& gui;
};
}  // namespace Gui::Display
