#include "gui/screens/computerinput/ComputerInputGuiMessageManager.h"

#include <array>

#include "backend/messages/GuiMessages.h"
#include "gui/screens/computerinput/ComputerInputPanel.h"

namespace Gui::ComputerInput
{
using Backend::ComputerInput::KeyConfiguration;
using Backend::ComputerInput::KeyConfigurationMap;
using Command = GuiCommand<ComputerInputPanel>;

namespace
{
constexpr auto COMMANDS = std::to_array<Command>({
    payloadCommand<&ComputerInputPanel::handleKeyConfigurations, std::vector<KeyConfiguration>, ComputerInputPanel>(
        Backend::GuiMessage::KEY_CONFIGURATIONS),
    {Backend::GuiMessage::COMPUTER_INPUT,
     [](ComputerInputPanel& panel, Message& message) {
         if (auto* keys = message.payload.get<KeyConfigurationMap>())
             panel.handleComputerInput(message.wparam != 0, std::move(*keys));
     }},
    payloadCommand<&ComputerInputPanel::handleComputerInputChanged, std::string, ComputerInputPanel>(
        Backend::GuiMessage::COMPUTER_INPUT_CHANGED),
    plainCommand<&ComputerInputPanel::handlePresetLoaded, ComputerInputPanel>(
        Backend::GuiMessage::COMPUTER_INPUT_PRESET),
});
}  // namespace

ComputerInputGuiMessageManager::ComputerInputGuiMessageManager(ComputerInputPanel& panel)
    : TableMessageManager(COMMANDS, panel)
{
}
}  // namespace Gui::ComputerInput
