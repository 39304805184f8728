#include "gui/screens/system/SystemGuiMessageManager.h"

#include <array>

#include "backend/messages/GuiMessages.h"
#include "gui/screens/system/SystemPanel.h"

namespace Gui::System
{
using namespace Backend;

namespace
{
constexpr auto COMMANDS = std::to_array<GuiCommand<SystemPanel>>({
    payloadCommand<&SystemPanel::handleRetroRecordSaved, RetroRecord::SaveReport, SystemPanel>(
        GuiMessage::RETRO_RECORD_SAVED),
    valueCommand<&SystemPanel::handleRetroRecordFillChanged, int, SystemPanel>(GuiMessage::RETRO_RECORD_FILL),
});
}  // namespace

SystemGuiMessageManager::SystemGuiMessageManager(SystemPanel& panel) : TableMessageManager(COMMANDS, panel) {}
}  // namespace Gui::System
