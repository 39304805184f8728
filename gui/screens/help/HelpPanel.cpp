#include "gui/screens/help/HelpPanel.h"

#include "gui/OrvGuiIF.h"

namespace Gui::Help
{
namespace
{
constexpr QSize SIZE(760, 60);
}

HelpPanel::HelpPanel(OrvGuiIF& owner, Panel* around) : Panel(around), gui(owner) { setPanelSize(SIZE); }
}  // namespace Gui::Help
