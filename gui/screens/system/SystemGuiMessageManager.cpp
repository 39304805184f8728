#include "gui/screens/system/SystemGuiMessageManager.h"

#include <array>

#include "backend/messages/GuiMessages.h"
#include "gui/screens/system/SystemPanel.h"

namespace Gui::System
{
using namespace Backend;

namespace
{
constexpr auto COMMANDS = std::to_array<Command<SystemPanel>>({
    on<GuiMessage::RETRO_RECORD_SAVED, &SystemPanel::handleRetroRecordSaved>(),
    on<GuiMessage::RETRO_RECORD_FILL, &SystemPanel::handleRetroRecordFillChanged>(),
});
}  // namespace

SystemGuiMessageManager::SystemGuiMessageManager(SystemPanel& panel) : TableMessageManager(COMMANDS, panel) {}
}  // namespace Gui::System
