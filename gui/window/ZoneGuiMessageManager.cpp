#include "gui/window/ZoneGuiMessageManager.h"

#include <array>

#include "backend/messages/GuiMessages.h"
#include "gui/window/MainWindow.h"

namespace Gui
{
namespace
{
constexpr auto ZONE_COMMANDS = std::to_array<Backend::Command<MainWindow>>({
    Backend::on<Backend::GuiMessage::ZONE_TRANSPOSE, &MainWindow::handleZoneTranspose>(),
    Backend::on<Backend::GuiMessage::ZONES, &MainWindow::handleZones>(),
    Backend::on<Backend::GuiMessage::ZONE_SELECTED, &MainWindow::handleZoneSelected>(),
});
}  // namespace

ZoneGuiMessageManager::ZoneGuiMessageManager(MainWindow& window) : TableMessageManager(ZONE_COMMANDS, window) {}
}  // namespace Gui
