#include "gui/window/ZoneGuiMessageManager.h"

#include <array>

#include "backend/messages/GuiMessages.h"
#include "gui/window/ScreenColumn.h"

namespace Gui
{
namespace
{
constexpr auto ZONE_COMMANDS = std::to_array<Backend::Command<ScreenColumn>>({
    Backend::on<Backend::GuiMessage::ZONE_TRANSPOSE, &ScreenColumn::handleZoneTranspose>(),
    Backend::on<Backend::GuiMessage::ZONES, &ScreenColumn::handleZones>(),
    Backend::on<Backend::GuiMessage::ZONE_SELECTED, &ScreenColumn::handleZoneSelected>(),
});
}  // namespace

ZoneGuiMessageManager::ZoneGuiMessageManager(ScreenColumn& screens) : TableMessageManager(ZONE_COMMANDS, screens) {}
}  // namespace Gui
