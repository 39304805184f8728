#include "gui/screens/computerinput/ComputerInputGuiMessageManager.h"

#include <array>

#include "backend/messages/GuiMessages.h"
#include "gui/screens/computerinput/ComputerInputPanel.h"

namespace Gui::ComputerInput
{
using namespace Backend;

namespace
{
constexpr auto COMMANDS = std::to_array<Command<ComputerInputPanel>>({
    on<GuiMessage::KEY_CONFIGURATIONS, &ComputerInputPanel::handleKeyConfigurations>(),
    on<GuiMessage::COMPUTER_INPUT, &ComputerInputPanel::handleComputerInput>(),
    on<GuiMessage::COMPUTER_INPUT_CHANGED, &ComputerInputPanel::handleComputerInputChanged>(),
    on<GuiMessage::COMPUTER_INPUT_PRESET, &ComputerInputPanel::handlePresetLoaded>(),
});
}  // namespace

ComputerInputGuiMessageManager::ComputerInputGuiMessageManager(ComputerInputPanel& panel)
    : TableMessageManager(COMMANDS, panel)
{
}
}  // namespace Gui::ComputerInput
