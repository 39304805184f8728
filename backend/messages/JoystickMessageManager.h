#pragma once

#include <string>
#include <vector>

#include "backend/messages/PresetMessages.h"
#include "backend/model/JoystickConfiguration.h"
#include "backend/model/JoystickElement.h"
#include "platform/Export.h"

namespace Backend::Joystick
{
namespace JoystickMessage
{
inline constexpr MessageRange RANGE{35218, 35240};

inline constexpr TypedMessage<int, bool, std::string> DEVICE_CHANGED{35218, "DeviceChanged"};
inline constexpr TypedMessage<std::vector<JoystickButtonConfiguration>, bool> SET_BUTTON_CONFIGURATIONS{
    35219, "SetButtonConfigurations"};
inline constexpr TypedMessage<std::vector<AxisConfiguration>, bool> SET_AXIS_CONFIGURATIONS{35220,
                                                                                            "SetAxisConfigurations"};
inline constexpr TypedMessage<JoystickElement, AxisPair> XY_GRID{35221, "XyGrid"};
inline constexpr TypedMessage<JoystickElement, AxisPair> UV_GRID{35222, "UvGrid"};
inline constexpr TypedMessage<JoystickElement, int> X_AXIS{35223, "XAxis"};
inline constexpr TypedMessage<JoystickElement, int> Y_AXIS{35224, "YAxis"};
inline constexpr TypedMessage<JoystickElement, int> Z_AXIS{35225, "ZAxis"};
inline constexpr TypedMessage<JoystickElement, int> R_AXIS{35226, "RAxis"};
inline constexpr TypedMessage<JoystickElement, int> U_AXIS{35227, "UAxis"};
inline constexpr TypedMessage<JoystickElement, int> V_AXIS{35228, "VAxis"};
inline constexpr TypedMessage<JoystickElement, int> JOYSTICK_AXIS{35229, "JoystickAxis"};
inline constexpr TypedMessage<JoystickElement, int> GUI_AXIS{35230, "GuiAxis"};
inline constexpr TypedMessage<JoystickElement, bool> JOYSTICK_BUTTON_DOWN{35231, "JoystickButtonDown"};
inline constexpr TypedMessage<JoystickElement> JOYSTICK_BUTTON_UP{35232, "JoystickButtonUp"};
inline constexpr TypedMessage<JoystickElement, bool> GUI_BUTTON_DOWN{35233, "GuiButtonDown"};
inline constexpr TypedMessage<JoystickElement> GUI_BUTTON_UP{35234, "GuiButtonUp"};
/// LOAD_PRESET, RENAME_PRESET, DELETE_PRESET and SAVE_PRESET.
using Presets = PresetMessages<35235>;
inline constexpr TypedMessage<int, bool> ENABLE_JOYSTICK{35239, "EnableJoystick"};
inline constexpr TypedMessage<JoystickElement, int> AXIS_FOUND{35240, "AxisFound"};
}  // namespace JoystickMessage

/// The commands of the joystick section, from the window and for the reports of joysticks. Any thread but the time
/// slice. Messages contain copies of configurations. An id that is not valid is ignored.
class ORV_API JoystickMessageManager final : public PresetMessageManager<JoystickMessage::Presets>
{
public:
    JoystickMessageManager(MessageManagerMaster& managerMaster, Handler handler)
        : PresetMessageManager(managerMaster, JoystickMessage::RANGE, std::move(handler))
    {
    }

    /// A joystick was plugged in, with what it calls itself, or was unplugged.
    void postDeviceChanged(int joystick, bool present, const std::string& name)
    {
        master.post(JoystickMessage::DEVICE_CHANGED(joystick, present, name));
    }

    // Reports of a joystick, ignored while it is disabled

    /// 0 to 65535.
    void postJoystickAxis(const JoyAxisElementId& id, int value)
    {
        master.post(JoystickMessage::JOYSTICK_AXIS({id.joystick, id.axis, AxisMode::raw}, value));
    }

    /// Where an axis stands when its joystick is plugged in; nothing is played.
    void postAxisFound(const JoyAxisElementId& id, int value)
    {
        master.post(JoystickMessage::AXIS_FOUND({id.joystick, id.axis, AxisMode::raw}, value));
    }

    void postJoystickButtonDown(const JoyButtonElementId& id, bool repeat)
    {
        master.post(JoystickMessage::JOYSTICK_BUTTON_DOWN({id.joystick, id.button}, repeat));
    }

    void postJoystickButtonUp(const JoyButtonElementId& id)
    {
        master.post(JoystickMessage::JOYSTICK_BUTTON_UP({id.joystick, id.button}));
    }

    // Commands of the window

    /// X and Y together, or U and V, each from 0 to 65535.
    void postXyGrid(int joystick, AxisMode mode, int x, int y)
    {
        master.post(JoystickMessage::XY_GRID({joystick, 0, mode}, {x, y}));
    }

    void postUvGrid(int joystick, AxisMode mode, int u, int v)
    {
        master.post(JoystickMessage::UV_GRID({joystick, 0, mode}, {u, v}));
    }

    void postGuiAxis(const JoyAxisElementId& id, AxisMode mode, int value)
    {
        master.post(JoystickMessage::GUI_AXIS({id.joystick, id.axis, mode}, value));
    }

    void postGuiButtonDown(const JoyButtonElementId& id, bool repeat)
    {
        master.post(JoystickMessage::GUI_BUTTON_DOWN({id.joystick, id.button}, repeat));
    }

    void postGuiButtonUp(const JoyButtonElementId& id)
    {
        master.post(JoystickMessage::GUI_BUTTON_UP({id.joystick, id.button}));
    }

    void postEnableJoystick(int joystick, bool enabled)
    {
        master.post(JoystickMessage::ENABLE_JOYSTICK(joystick, enabled));
    }

    void postSetButtonConfigurations(const std::vector<JoystickButtonConfiguration>& buttons, bool notifyGui)
    {
        master.post(JoystickMessage::SET_BUTTON_CONFIGURATIONS(buttons, notifyGui));
    }

    void postSetAxisConfigurations(const std::vector<AxisConfiguration>& axes, bool notifyGui)
    {
        master.post(JoystickMessage::SET_AXIS_CONFIGURATIONS(axes, notifyGui));
    }
};
}  // namespace Backend::Joystick
