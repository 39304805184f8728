#pragma once

#include "gui/framework/Panel.h"

namespace Gui
{
class OrvGuiIF;
}

namespace Gui::Output
{
/// The music keyboard that shows what is played, and plays.
class OutputPanel final : public Panel
{
public:
    OutputPanel(OrvGuiIF& owner, Panel* around);

private:
    OrvGuiIF& gui;
};
}  // namespace Gui::Output
