#include "gui/screens/system/SystemPanel.h"

#include "gui/OrvGuiIF.h"

namespace Gui::System
{
namespace
{
constexpr QSize SIZE(760, 70);
}

SystemPanel::SystemPanel(OrvGuiIF& owner, Panel* around) : Panel(around), gui(owner) { setPanelSize(SIZE); }
}  // namespace Gui::System
