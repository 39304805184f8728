#pragma once

#include <array>
#include <string>
#include <vector>

#include "backend/model/JoystickElement.h"
#include "backend/model/ZoneMap.h"
#include "gui/forms/RecordEditor.h"
#include "gui/framework/Panel.h"
#include "gui/screens/joystick/AxisRecords.h"
#include "gui/screens/joystick/JoystickButtonRecords.h"
#include "gui/screens/joystick/JoystickGuiMessageManager.h"

class QCheckBox;
class QLabel;
class QPushButton;

namespace Gui
{
class Fader;
class OrvGuiIF;
}  // namespace Gui

namespace Gui::Joystick
{
class GridCtl;
class PartsCtl;

/// The screen of the joysticks: where their axes stand and which buttons are down, both to be played by the mouse;
/// beneath it, what the selected axes or buttons do is edited. It shows its own copy of the section.
class JoystickPanel final : public Panel
{
public:
    JoystickPanel(OrvGuiIF& owner, Panel* around);

    // Changes that the backend reports
    void handleButtons(const std::vector<Backend::Joystick::JoystickButtonConfiguration>& changed);
    void handleAxes(const std::vector<Backend::Joystick::AxisConfiguration>& changed);
    void handleEnabled(int joystick, bool on);
    void handleButtonDown(const Backend::Joystick::JoystickElement& button);
    void handleButtonUp(const Backend::Joystick::JoystickElement& button);
    /// As `GuiMessage::JOYSTICK_AXIS`.
    void handleAxis(std::uint32_t axisAndValue, std::int32_t limits);
    void handleDevice(int joystick, bool present, const std::string& name);
    void handleZones(const Backend::Zones::ZoneMap& newZones);
    void handleZoneTranspose(Backend::Zones::ZoneId zone, int transpose);

private:
    using AxisId = AxisRecords::AxisId;

    /// The controls of a joystick, owned by their Qt parents.
    struct Stick {
        QLabel* device = nullptr;
        QCheckBox* isOn = nullptr;
        GridCtl* xy = nullptr;
        GridCtl* uv = nullptr;
        Fader* z = nullptr;
        Fader* r = nullptr;
    };

    void makeTopRow();
    void makeStick(int joystick);
    GridCtl& makeGrid(int joystick, const char* across, const char* up, const QRect& place);
    Fader& makeFader(int joystick, const char* axis, int left);
    void makeParts();
    void makeSettings();
    void openSettings(Forms::RecordEditor& opened, Forms::RecordEditor& other);
    void fit();
    void enable(int joystick, bool on);

    OrvGuiIF& gui;
    Forms::FieldLists lists;
    AxisRecords axes;
    JoystickButtonRecords buttons;
    Forms::RecordEditor axisEditor;
    Forms::RecordEditor buttonEditor;
    Forms::RecordEditor* edited;  // whose settings are open, or were last
    Backend::Zones::ZoneMap zones;
    JoystickGuiMessageManager messages;
    std::array<Stick, Backend::Joystick::JOYSTICKS> sticks;
    PartsCtl* axisParts = nullptr;  // these are owned by their Qt parents
    PartsCtl* buttonParts = nullptr;
    QPushButton* editButton = nullptr;
    QLabel* title = nullptr;
    QWidget* settings = nullptr;
    QWidget* axisSettings = nullptr;
    QWidget* buttonSettings = nullptr;
};
}  // namespace Gui::Joystick
