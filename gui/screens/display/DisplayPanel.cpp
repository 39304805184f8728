#include "gui/screens/display/DisplayPanel.h"

#include "gui/OrvGuiIF.h"

namespace Gui::Display
{
namespace
{
constexpr QSize SIZE(760, 200);
}

DisplayPanel::DisplayPanel(OrvGuiIF& owner, Panel* around) : Panel(around), gui(owner) { setPanelSize(SIZE); }
}  // namespace Gui::Display
