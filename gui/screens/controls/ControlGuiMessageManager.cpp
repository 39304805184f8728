#include "gui/screens/controls/ControlGuiMessageManager.h"

#include <array>

#include "backend/messages/GuiMessages.h"
#include "gui/screens/controls/ControlPanel.h"

namespace Gui::Controls
{
using namespace Backend;

namespace
{
constexpr auto CONTROL_COMMANDS = std::to_array<Command<ControlPanel>>({
    on<GuiMessage::CONTROLS, &ControlPanel::handleControls>(),
    on<GuiMessage::CONTROL_VALUE, &ControlPanel::handleControlValue>(),
    on<GuiMessage::CONTROL_SELECTED, &ControlPanel::handleControlSelected>(),
    on<GuiMessage::SET_WIDGET_FOCUS, &ControlPanel::handleSetWidgetFocus>(),
});
}  // namespace

ControlGuiMessageManager::ControlGuiMessageManager(ControlPanel& panel) : TableMessageManager(CONTROL_COMMANDS, panel)
{
}
}  // namespace Gui::Controls
