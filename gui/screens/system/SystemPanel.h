#pragma once

#include "gui/framework/Panel.h"

namespace Gui
{
class OrvGuiIF;
}

namespace Gui::System
{
/// The screen of what concerns the whole: program, tempo, outputs, and a button for every other screen.
class SystemPanel final : public Panel
{
public:
    SystemPanel(OrvGuiIF& owner, Panel* around);

private:
    OrvGuiIF& gui;
};
}  // namespace Gui::System
