#pragma once

#include <string>
#include <vector>

#include "backend/messages/MessageManager.h"
#include "backend/model/JoystickConfiguration.h"
#include "platform/Export.h"

namespace Backend::Joystick
{
class JoystickManager;

/// What joysticks report and the window asks of them. Any thread but the time slice. Configurations travel as copies;
/// axes and buttons go in the message itself. An id that is not valid does nothing.
class ORV_API JoystickMessageManager final : public MessageManager
{
public:
    JoystickMessageManager(MessageManagerMaster& master, JoystickManager& joystickManager);

    bool wantMessage(unsigned int message) const override;
    void handleMessage(Message& message) override;

    // A joystick's reports, ignored while it is disabled

    /// 0 to 65535.
    void postJoystickAxis(const JoyAxisElementId& id, int value);
    void postJoystickButtonDown(const JoyButtonElementId& id, bool repeat);
    void postJoystickButtonUp(const JoyButtonElementId& id);

    // The window's wishes

    /// X and Y together, or U and V, each from 0 to 65535.
    void postXyGrid(int joystick, AxisMode mode, int x, int y);
    void postUvGrid(int joystick, AxisMode mode, int u, int v);
    void postGuiAxis(const JoyAxisElementId& id, AxisMode mode, int value);
    void postGuiButtonDown(const JoyButtonElementId& id, bool repeat);
    void postGuiButtonUp(const JoyButtonElementId& id);
    void postEnableJoystick(int joystick, bool enabled);

    void postSetButtonConfigurations(const std::vector<JoystickButtonConfiguration>& buttons, bool notifyGui);
    void postSetAxisConfigurations(const std::vector<AxisConfiguration>& axes, bool notifyGui);

    void postLoadPreset(const std::string& name);
    void postRenamePreset(const std::string& name, const std::string& newName);
    void postDeletePreset(const std::string& name);
    void postSavePreset(const std::string& name);

private:
    JoystickManager& manager;
};
}  // namespace Backend::Joystick
