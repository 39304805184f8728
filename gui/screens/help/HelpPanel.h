#pragma once

#include "gui/framework/Panel.h"

namespace Gui
{
class OrvGuiIF;
}

namespace Gui::Help
{
/// Says what the thing does that is pointed at.
class HelpPanel final : public Panel
{
public:
    HelpPanel(OrvGuiIF& owner, Panel* around);

private:
    OrvGuiIF& gui;
};
}  // namespace Gui::Help
