#include "gui/screens/output/OutputPanel.h"

#include "gui/OrvGuiIF.h"

namespace Gui::Output
{
namespace
{
constexpr QSize SIZE(760, 80);
}

OutputPanel::OutputPanel(OrvGuiIF& owner, Panel* around) : Panel(around), gui(owner) { setPanelSize(SIZE); }
}  // namespace Gui::Output
