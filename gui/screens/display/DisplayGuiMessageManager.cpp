#include "gui/screens/display/DisplayGuiMessageManager.h"

#include <array>
#include <string>

#include "backend/messages/GuiMessages.h"
#include "gui/screens/display/DisplayFeed.h"
#include "gui/screens/display/DisplayPanel.h"

namespace Gui::Display
{
namespace
{
static_assert(unsigned{DisplayMessage::ADD_TEXT} > unsigned{Backend::GuiMessage::OSC_VALUE});

constexpr auto COMMANDS = std::to_array<GuiCommand<DisplayPanel>>({
    payloadCommand<&DisplayPanel::addText, std::string, DisplayPanel>(DisplayMessage::ADD_TEXT),
    payloadCommand<&DisplayPanel::setText, std::string, DisplayPanel>(DisplayMessage::SET_TEXT),
});
}  // namespace

DisplayGuiMessageManager::DisplayGuiMessageManager(DisplayPanel& panel) : TableMessageManager(COMMANDS, panel) {}
}  // namespace Gui::Display
