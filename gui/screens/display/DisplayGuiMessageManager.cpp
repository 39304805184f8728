#include "gui/screens/display/DisplayGuiMessageManager.h"

#include <array>

#include "backend/messages/GuiMessages.h"
#include "gui/screens/display/DisplayFeed.h"
#include "gui/screens/display/DisplayPanel.h"

namespace Gui::Display
{
namespace
{
static_assert(DisplayMessage::ADD_TEXT.number > Backend::GuiMessage::OSC_VALUE.number);

constexpr auto COMMANDS = std::to_array<Backend::Command<DisplayPanel>>({
    Backend::on<DisplayMessage::ADD_TEXT, &DisplayPanel::addText>(),
    Backend::on<DisplayMessage::SET_TEXT, &DisplayPanel::setText>(),
});
}  // namespace

DisplayGuiMessageManager::DisplayGuiMessageManager(DisplayPanel& panel) : TableMessageManager(COMMANDS, panel) {}
}  // namespace Gui::Display
