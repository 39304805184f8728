#pragma once

#include <array>
#include <functional>
#include <optional>
#include <vector>

#include "backend/model/MidiPort.h"
#include "backend/model/Screen.h"
#include "backend/model/ScreenState.h"
#include "backend/model/ZoneMap.h"
#include "gui/framework/NoteLights.h"
#include "gui/framework/Panel.h"
#include "gui/screens/cc/SentValues.h"
#include "gui/window/ZoneGuiMessageManager.h"

namespace Backend
{
class RegistrySettings;
}

namespace Gui
{
class OrvGuiIF;
class WindowKeyboard;

namespace Cc
{
class CcPanel;
}
namespace ComputerInput
{
class ComputerInputPanel;
}
namespace Display
{
class DisplayPanel;
}
namespace Help
{
class HelpPanel;
}
namespace Joystick
{
class JoystickPanel;
}
namespace Layers
{
class MainPanel;
}
namespace Output
{
class OutputPanel;
}
namespace System
{
class StagePanel;
class SystemPanel;
}  // namespace System
namespace Zones
{
class ZonePanel;
}

/// The screens, one below the other. Only the upper rows of the system screen, the `StagePanel`, are outside the
/// column; they are shown and hidden with it. A screen that is not needed while it is hidden is made when it is shown
/// for the first time. The GUI thread.
class ScreenColumn final : public Panel
{
public:
    /// All screens, as menus list them.
    static constexpr std::array SCREENS{
        Backend::Screen::system,        Backend::Screen::help,     Backend::Screen::display,
        Backend::Screen::oscillators,   Backend::Screen::joystick, Backend::Screen::midiInput,
        Backend::Screen::computerInput, Backend::Screen::controls, Backend::Screen::output,
        Backend::Screen::layers,        Backend::Screen::cc,       Backend::Screen::zones};

    /// The first two must outlive it; `window` becomes the parent of the `StagePanel`.
    ScreenColumn(OrvGuiIF& owner, WindowKeyboard& windowKeyboard, QWidget& window);
    ~ScreenColumn() override;

    /// Called when the size of the column has changed, or which screens are shown.
    std::function<void()> onChange;

    /// A screen below the music keyboard shows the output screen, too; it is hidden with it and returns with it. A
    /// screen that is made requests its data.
    void showScreen(Backend::Screen screen, bool on);
    bool isShowing(Backend::Screen screen) const;

    void hideAll();
    /// Shows the screens that were hidden by `hideAll`, at least the system screen.
    void showHidden();

    Backend::ScreenState getState() const;
    /// Before the window requests its data.
    void setState(const Backend::ScreenState& state);

    // Changes that the backend reports, for the screens that show them
    void handleSettingsChanged(const Backend::RegistrySettings& settings);
    void handleLargeDisplayFontChanged(bool on);
    void handleDefaultMidiOutputChanged(int output);
    void handleMidiInputPortsChanged(const Backend::MidiEngine::MidiInputPorts& ports);
    void handleMidiOutputPortsChanged(const Backend::MidiEngine::MidiOutputPorts& ports);
    void handleSequenceSteps(const std::vector<int>& steps);
    void handleSequencePresets();
    void displayMidiOutputEvent(const Backend::MidiEngine::OrvMidiMessage& event);
    void handleZones(const Backend::Zones::ZoneMap& zones);
    void handleZoneTranspose(Backend::Zones::ZoneId zone, int transpose);
    void handleZoneSelected(Backend::Zones::ZoneId zone, bool selected);

    System::StagePanel& getStagePanel() { return *stagePanel; }
    System::SystemPanel& getSystemPanel() { return *systemPanel; }
    Help::HelpPanel& getHelpPanel() { return *helpPanel; }
    ComputerInput::ComputerInputPanel& getComputerInputPanel() { return *computerInputPanel; }
    Output::OutputPanel& getOutputPanel() { return *outputPanel; }

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    Panel* makePanel(Backend::Screen screen);
    void ensureMade(Backend::Screen screen);
    Panel* panelOf(Backend::Screen screen) const { return panels[static_cast<std::size_t>(screen)]; }
    void setShown(Backend::Screen screen, bool on);
    void screensChanged();
    void lightNotes();

    OrvGuiIF& gui;
    WindowKeyboard& keyboard;
    ZoneGuiMessageManager zoneMessages{*this};
    Cc::SentValues sent;
    NoteLights noteLights;                        // of the screens below the music keyboard
    std::array<Panel*, SCREENS.size()> panels{};  // null until they are made; owned by their Qt parents, as all these
    System::StagePanel* stagePanel;
    System::SystemPanel* systemPanel = nullptr;
    Help::HelpPanel* helpPanel = nullptr;
    ComputerInput::ComputerInputPanel* computerInputPanel = nullptr;
    Output::OutputPanel* outputPanel = nullptr;
    Display::DisplayPanel* displayPanel = nullptr;  // this and those that follow are null until they are shown
    Joystick::JoystickPanel* joystickPanel = nullptr;
    Zones::ZonePanel* zonePanel = nullptr;
    Layers::MainPanel* layerPanel = nullptr;
    Cc::CcPanel* ccPanel = nullptr;
    std::optional<Backend::ScreenState> hidden;  // the state before `hideAll`
};
}  // namespace Gui
