#include "gui/screens/computerinput/ComputerInputPanel.h"

#include "gui/OrvGuiIF.h"

namespace Gui::ComputerInput
{
namespace
{
constexpr QSize SIZE(760, 200);
}

ComputerInputPanel::ComputerInputPanel(OrvGuiIF& owner, Panel* around) : Panel(around), gui(owner)
{
    setPanelSize(SIZE);
}
}  // namespace Gui::ComputerInput
