#include "gui/screens/oscillators/OscGuiMessageManager.h"

#include <array>

#include "backend/messages/GuiMessages.h"
#include "gui/screens/oscillators/OscPanel.h"

namespace Gui::Oscillators
{
using namespace Backend;

namespace
{
constexpr auto OSC_COMMANDS = std::to_array<Command<OscPanel>>({
    on<GuiMessage::OSCILLATORS, &OscPanel::handleOscillators>(),
    on<GuiMessage::OSC_SELECTED, &OscPanel::handleOscSelected>(),
    on<GuiMessage::OSC_PLAYING, &OscPanel::handleOscPlaying>(),
    on<GuiMessage::OSC_SPEED, &OscPanel::handleOscSpeed>(),
    on<GuiMessage::OSC_SPEED_MODE, &OscPanel::handleOscSpeedMode>(),
    on<GuiMessage::OSC_VALUE, &OscPanel::handleOscValue>(),
});
}  // namespace

OscGuiMessageManager::OscGuiMessageManager(OscPanel& panel) : TableMessageManager(OSC_COMMANDS, panel) {}
}  // namespace Gui::Oscillators
