#pragma once

#include "gui/framework/GuiMessageTable.h"

namespace Gui::Joystick
{
class JoystickPanel;

/// Handles the backend's messages on the joysticks.
class JoystickGuiMessageManager final : public TableMessageManager<JoystickPanel>
{
public:
    explicit JoystickGuiMessageManager(JoystickPanel& panel);
};
}  // namespace Gui::Joystick
