#include "gui/screens/joystick/JoystickGuiMessageManager.h"

#include <array>

#include "backend/messages/GuiMessages.h"
#include "gui/screens/joystick/JoystickPanel.h"

namespace Gui::Joystick
{
using namespace Backend;

namespace
{
constexpr auto JOYSTICK_COMMANDS = std::to_array<Command<JoystickPanel>>({
    on<GuiMessage::JOYSTICK_BUTTONS, &JoystickPanel::handleButtons>(),
    on<GuiMessage::JOYSTICK_AXES, &JoystickPanel::handleAxes>(),
    on<GuiMessage::JOYSTICK_ENABLED, &JoystickPanel::handleEnabled>(),
    on<GuiMessage::JOYSTICK_BUTTON_DOWN, &JoystickPanel::handleButtonDown>(),
    on<GuiMessage::JOYSTICK_BUTTON_UP, &JoystickPanel::handleButtonUp>(),
    on<GuiMessage::JOYSTICK_AXIS, &JoystickPanel::handleAxis>(),
    on<GuiMessage::JOYSTICK_DEVICE, &JoystickPanel::handleDevice>(),
});
}  // namespace

JoystickGuiMessageManager::JoystickGuiMessageManager(JoystickPanel& panel)
    : TableMessageManager(JOYSTICK_COMMANDS, panel)
{
}
}  // namespace Gui::Joystick
