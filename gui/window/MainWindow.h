#pragma once

#include <QWidget>
#include <functional>
#include <memory>
#include <optional>

#include "backend/model/MidiPort.h"
#include "backend/model/Screen.h"
#include "backend/model/ScreenState.h"
#include "backend/model/ZoneMap.h"
#include "gui/framework/KeyTarget.h"
#include "gui/framework/NoteLights.h"
#include "gui/screens/cc/SentValues.h"
#include "gui/window/ZoneGuiMessageManager.h"

class QDialog;
class QPushButton;

namespace Backend
{
class RegistrySettings;
}

namespace Gui
{
class KeyPresses;
class OrvGuiIF;
class Panel;
class WindowKeyboard;

namespace Cc
{
class CcPanel;
}
namespace ComputerInput
{
class ComputerInputPanel;
}
namespace Controls
{
class ControlPanel;
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
namespace MidiInput
{
class MidiInputPanel;
}
namespace Oscillators
{
class OscPanel;
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

/// The window itself: the screens in one column, and the computer keyboard that plays in it. Three buttons, with reset
/// among them, stand where the system screen is hidden, and alone while no screen is shown. Its natural size follows
/// its screens; with less height the column scrolls below the upper rows of the system screen, with more width it is
/// centred. The GUI thread.
class MainWindow final : public QWidget
{
public:
    /// The width of all screens with the margins and room for a scroll bar, in logical pixels.
    static constexpr int WIDTH = 980;

    using Resized = std::function<void(QSize before, QSize now)>;

    /// A child of `parent`, which it fills, or a window of its own where that is null. `onResize` is called when its
    /// natural size changes.
    MainWindow(OrvGuiIF& owner, QWidget* parent, Resized onResize);
    ~MainWindow() override;

    /// A screen below the music keyboard shows the output screen, too; it is hidden with it and returns with it. What
    /// is not needed while it is hidden is made when it is shown for the first time, and requests its data then.
    void showScreen(Backend::Screen screen, bool on);
    void toggleScreen(Backend::Screen screen);
    bool isShowing(Backend::Screen screen) const;

    /// Hides all screens, or shows those that were hidden so, at least the system screen.
    void setCompact(bool on);
    bool isCompact() const;

    /// The scale has changed.
    void rescale();
    /// The natural size in logical pixels of 100 percent.
    QSize getNaturalSize() const;

    Backend::ScreenState getScreenState() const;
    /// Before the window requests its data.
    void setScreenState(const Backend::ScreenState& state);

    /// Gives the focus back to playing, unless a text is being edited.
    void setPlayingFocus();
    /// See `WindowKeyboard`.
    void playEveryKey(bool on);
    /// Whether a dialog of it is open.
    bool hasDialog() const;

    // What several screens show, or one that may not exist yet
    void handleSettingsChanged(const Backend::RegistrySettings& settings);
    void handleLargeDisplayFontChanged(bool on);
    void handleDefaultMidiOutputChanged(int output);
    void handleSequenceSteps(const std::vector<int>& steps);
    void handleSequencePresets();
    void displayMidiOutputEvent(const Backend::MidiEngine::OrvMidiMessage& event);
    void handleZones(const Backend::Zones::ZoneMap& zones);
    void handleZoneTranspose(Backend::Zones::ZoneId zone, int transpose);
    void handleZoneSelected(Backend::Zones::ZoneId zone, bool selected);

    void handleMidiInputPortsChanged(const Backend::MidiEngine::MidiInputPorts& ports);
    void handleMidiOutputPortsChanged(const Backend::MidiEngine::MidiOutputPorts& ports);
    void setMidiThru(bool on);
    void setGlobalKeyboard(bool on);

    System::SystemPanel& getSystemPanel() { return *systemPanel; }
    System::StagePanel& getStagePanel() { return *stagePanel; }
    Help::HelpPanel& getHelpPanel() { return *helpPanel; }
    ComputerInput::ComputerInputPanel& getComputerInputPanel() { return *computerInputPanel; }
    Output::OutputPanel& getOutputPanel() { return *outputPanel; }
    KeyPresses& getKeyPresses();

protected:
    bool eventFilter(QObject* object, QEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    class Column;
    class ColumnView;
    class PlayedKeys;

    void makeButtons();
    void makePanels();
    Panel* makePanel(Backend::Screen screen);
    void ensureMade(Backend::Screen screen);
    void fit();
    void layOut();
    int getHeadHeight() const;
    void showScreenMenu(const QPoint& globalPosition);
    void setShown(Backend::Screen screen, bool on);
    void showScreenStates();
    void lightNotes();
    void showKeyTarget(KeyTarget target);
    bool useWindowKey(const QKeyEvent& event);
    bool useSectionKey(const QKeyEvent& event);
    void showHelpOf(const QWidget& control);
    void frameDialog(QDialog& dialog) const;
    Panel* panelOf(Backend::Screen screen) const;

    OrvGuiIF& gui;
    const Resized resized;
    ZoneGuiMessageManager zoneMessages{*this};
    std::unique_ptr<PlayedKeys> playedKeys;
    std::unique_ptr<WindowKeyboard> keyboard;
    QPushButton* resetButton = nullptr;  // these are owned by their Qt parents
    QPushButton* thruButton = nullptr;
    QPushButton* keyboardButton = nullptr;
    ColumnView* view = nullptr;
    Column* column = nullptr;
    System::StagePanel* stagePanel = nullptr;
    System::SystemPanel* systemPanel = nullptr;
    Help::HelpPanel* helpPanel = nullptr;
    ComputerInput::ComputerInputPanel* computerInputPanel = nullptr;
    Output::OutputPanel* outputPanel = nullptr;
    Display::DisplayPanel* displayPanel = nullptr;  // this and those that follow are null until they are shown
    Oscillators::OscPanel* oscPanel = nullptr;
    Joystick::JoystickPanel* joystickPanel = nullptr;
    MidiInput::MidiInputPanel* midiInputPanel = nullptr;
    Controls::ControlPanel* controlPanel = nullptr;
    Zones::ZonePanel* zonePanel = nullptr;
    Layers::MainPanel* layerPanel = nullptr;
    Cc::CcPanel* ccPanel = nullptr;
    Cc::SentValues sent;
    NoteLights noteLights;  // of the screens below the music keyboard
    QSize lastSize;
    std::optional<Backend::ScreenState> stateBeforeCompact;
};
}  // namespace Gui
