#include "backend/sections/joystick/JoystickMessageManager.h"

#include <array>

#include "backend/messages/Command.h"
#include "backend/messages/MessageManagerMaster.h"
#include "backend/sections/joystick/JoystickManager.h"

namespace Backend::Joystick
{
namespace
{
enum Number : unsigned int {
    FIRST = 35218,
    SET_BUTTON_CONFIGURATIONS = 35219,
    SET_AXIS_CONFIGURATIONS = 35220,
    XY_GRID = 35221,
    UV_GRID = 35222,
    X_AXIS = 35223,
    Y_AXIS = 35224,
    Z_AXIS = 35225,
    R_AXIS = 35226,
    U_AXIS = 35227,
    V_AXIS = 35228,
    JOYSTICK_AXIS = 35229,
    GUI_AXIS = 35230,
    JOYSTICK_BUTTON_DOWN = 35231,
    JOYSTICK_BUTTON_UP = 35232,
    GUI_BUTTON_DOWN = 35233,
    GUI_BUTTON_UP = 35234,
    LOAD_PRESET = 35235,
    RENAME_PRESET = 35236,
    DELETE_PRESET = 35237,
    SAVE_PRESET = 35238,
    ENABLE_JOYSTICK = 35239,
    LAST = 35240
};

// --- the parameters: a joystick in the low byte, its axis or button in the next, a mode above

constexpr std::uint32_t packed(int joystick, int part = 0, AxisMode mode = AxisMode::position)
{
    const auto byte = [](int value) { return static_cast<std::uint32_t>(value) & 0xFF; };
    return byte(joystick) | byte(part) << 8 | static_cast<std::uint32_t>(mode) << 16;
}

constexpr int joystickOf(const Message& message) { return static_cast<int>(message.wparam & 0xFF); }
constexpr int partOf(const Message& message) { return static_cast<int>(message.wparam >> 8 & 0xFF); }
constexpr AxisMode modeOf(const Message& message) { return static_cast<AxisMode>(message.wparam >> 16); }

constexpr std::int32_t packedPair(int low, int high)
{
    return static_cast<std::int32_t>((static_cast<std::uint32_t>(low) & 0xFFFF) | static_cast<std::uint32_t>(high)
                                                                                      << 16);
}

// --- the commands that take them apart

template <int FIRST_AXIS, int SECOND_AXIS>
void grid(JoystickManager& manager, Message& message)
{
    const auto pair = static_cast<std::uint32_t>(message.lparam);
    const auto set = [&](int axis, std::uint32_t value) {
        manager.setAxis({joystickOf(message), axis}, modeOf(message), static_cast<int>(value), Source::gui);
    };
    set(FIRST_AXIS, pair & 0xFFFF);
    set(SECOND_AXIS, pair >> 16);
}

template <int AXIS>
void singleAxis(JoystickManager& manager, Message& message)
{
    manager.setAxis({joystickOf(message), AXIS}, modeOf(message), message.lparam, Source::gui);
}

template <Source SOURCE>
void anyAxis(JoystickManager& manager, Message& message)
{
    manager.setAxis({joystickOf(message), partOf(message)}, modeOf(message), message.lparam, SOURCE);
}

template <Source SOURCE>
void buttonDown(JoystickManager& manager, Message& message)
{
    const ButtonEvent event = message.lparam != 0 ? ButtonEvent::repeat : ButtonEvent::down;
    manager.pressButton({joystickOf(message), partOf(message)}, event, SOURCE);
}

template <Source SOURCE>
void buttonUp(JoystickManager& manager, Message& message)
{
    manager.pressButton({joystickOf(message), partOf(message)}, ButtonEvent::up, SOURCE);
}

constexpr int X = findAxis("X"), Y = findAxis("Y"), Z = findAxis("Z");
constexpr int R = findAxis("R"), U = findAxis("U"), V = findAxis("V");

constexpr auto COMMANDS = std::to_array<Command<JoystickManager>>({
    command<&JoystickManager::setButtonConfigurations>(SET_BUTTON_CONFIGURATIONS, "SetButtonConfigurations"),
    command<&JoystickManager::setAxisConfigurations>(SET_AXIS_CONFIGURATIONS, "SetAxisConfigurations"),
    {XY_GRID, "XyGrid", grid<X, Y>},
    {UV_GRID, "UvGrid", grid<U, V>},
    {X_AXIS, "XAxis", singleAxis<X>},
    {Y_AXIS, "YAxis", singleAxis<Y>},
    {Z_AXIS, "ZAxis", singleAxis<Z>},
    {R_AXIS, "RAxis", singleAxis<R>},
    {U_AXIS, "UAxis", singleAxis<U>},
    {V_AXIS, "VAxis", singleAxis<V>},
    {JOYSTICK_AXIS, "JoystickAxis", anyAxis<Source::joystick>},
    {GUI_AXIS, "GuiAxis", anyAxis<Source::gui>},
    {JOYSTICK_BUTTON_DOWN, "JoystickButtonDown", buttonDown<Source::joystick>},
    {JOYSTICK_BUTTON_UP, "JoystickButtonUp", buttonUp<Source::joystick>},
    {GUI_BUTTON_DOWN, "GuiButtonDown", buttonDown<Source::gui>},
    {GUI_BUTTON_UP, "GuiButtonUp", buttonUp<Source::gui>},
    command<&JoystickManager::loadPreset>(LOAD_PRESET, "LoadPreset"),
    command<&JoystickManager::renamePreset>(RENAME_PRESET, "RenamePreset"),
    command<&JoystickManager::deletePreset>(DELETE_PRESET, "DeletePreset"),
    command<&JoystickManager::savePreset>(SAVE_PRESET, "SavePreset"),
    command<&JoystickManager::enableJoystick>(ENABLE_JOYSTICK, "EnableJoystick"),
});
}  // namespace

JoystickMessageManager::JoystickMessageManager(MessageManagerMaster& managerMaster, JoystickManager& joystickManager)
    : MessageManager(managerMaster), manager(joystickManager)
{
}

bool JoystickMessageManager::wantMessage(unsigned int message) const { return message >= FIRST && message <= LAST; }

void JoystickMessageManager::handleMessage(Message& message) { carryOut<JoystickManager>(COMMANDS, manager, message); }

// --- a joystick's reports

void JoystickMessageManager::postJoystickAxis(const JoyAxisElementId& id, int value)
{
    master.postMessage(JOYSTICK_AXIS, packed(id.joystick, id.axis, AxisMode::raw), value);
}

void JoystickMessageManager::postJoystickButtonDown(const JoyButtonElementId& id, bool repeat)
{
    master.postMessage(JOYSTICK_BUTTON_DOWN, packed(id.joystick, id.button), repeat);
}

void JoystickMessageManager::postJoystickButtonUp(const JoyButtonElementId& id)
{
    master.postMessage(JOYSTICK_BUTTON_UP, packed(id.joystick, id.button), 0);
}

// --- the window's wishes

void JoystickMessageManager::postXyGrid(int joystick, AxisMode mode, int x, int y)
{
    master.postMessage(XY_GRID, packed(joystick, 0, mode), packedPair(x, y));
}

void JoystickMessageManager::postUvGrid(int joystick, AxisMode mode, int u, int v)
{
    master.postMessage(UV_GRID, packed(joystick, 0, mode), packedPair(u, v));
}

void JoystickMessageManager::postGuiAxis(const JoyAxisElementId& id, AxisMode mode, int value)
{
    master.postMessage(GUI_AXIS, packed(id.joystick, id.axis, mode), value);
}

void JoystickMessageManager::postGuiButtonDown(const JoyButtonElementId& id, bool repeat)
{
    master.postMessage(GUI_BUTTON_DOWN, packed(id.joystick, id.button), repeat);
}

void JoystickMessageManager::postGuiButtonUp(const JoyButtonElementId& id)
{
    master.postMessage(GUI_BUTTON_UP, packed(id.joystick, id.button), 0);
}

void JoystickMessageManager::postEnableJoystick(int joystick, bool enabled)
{
    master.post(pack(ENABLE_JOYSTICK, joystick, enabled));
}

void JoystickMessageManager::postSetButtonConfigurations(const std::vector<JoystickButtonConfiguration>& buttons,
                                                         bool notifyGui)
{
    master.post(pack(SET_BUTTON_CONFIGURATIONS, buttons, notifyGui));
}

void JoystickMessageManager::postSetAxisConfigurations(const std::vector<AxisConfiguration>& axes, bool notifyGui)
{
    master.post(pack(SET_AXIS_CONFIGURATIONS, axes, notifyGui));
}

// --- presets

void JoystickMessageManager::postLoadPreset(const std::string& name) { master.post(pack(LOAD_PRESET, name)); }

void JoystickMessageManager::postRenamePreset(const std::string& name, const std::string& newName)
{
    master.post(pack(RENAME_PRESET, name, newName));
}

void JoystickMessageManager::postDeletePreset(const std::string& name) { master.post(pack(DELETE_PRESET, name)); }

void JoystickMessageManager::postSavePreset(const std::string& name) { master.post(pack(SAVE_PRESET, name)); }
}  // namespace Backend::Joystick
