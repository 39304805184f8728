#pragma once

#include "backend/model/MidiPort.h"
#include "backend/model/Screen.h"
#include "backend/recorder/RetroRecordManager.h"
#include "gui/framework/Panel.h"
#include "gui/screens/system/SystemGuiMessageManager.h"

class QLabel;
class QPushButton;

namespace Backend
{
class OrvMessageManager;
struct Bank;
struct Program;
}  // namespace Backend

namespace Gui
{
class ComboBox;
class OrvGuiIF;
class PopupMenu;
struct Switch;
}  // namespace Gui

namespace Gui::System
{
class ScreenButtons;
class StagePanel;

/// The lower rows of the system screen: the other screens, files and setup; default output, clock, MIDI thru and
/// record. The upper rows are the stage panel. It posts what the user does to the backend; changes that the backend
/// reports are shown here and in the stage panel, and posted nowhere.
class SystemPanel final : public Panel
{
public:
    /// `stagePanel` must outlive it.
    SystemPanel(OrvGuiIF& owner, StagePanel& stagePanel, Panel* around);

    // Changes that the backend reports
    void handleBankChanged(const Backend::Bank& bank);
    void handleProgramChanged(const Backend::Program& program);
    void handleMidiInputPortsChanged(const Backend::MidiEngine::MidiInputPorts& ports);
    void handleMidiOutputPortsChanged(const Backend::MidiEngine::MidiOutputPorts& ports);
    void handleDefaultMidiOutputChanged(int output);
    void handleMidiThruChanged(bool on);
    void handleGlobalKeyboardChanged(bool on);
    void handleRetroRecordEnabledChanged(bool on);
    void handleRetroRecordFillChanged(int percent);
    void handleRetroRecordSaved(const Backend::RetroRecord::SaveReport& report);

    /// Adds the button of a screen.
    void offerScreen(Backend::Screen screen);
    void screenShown(Backend::Screen screen, bool on);

    /// Opens at its control, or at the pointer while the panel is hidden, and returns at once.
    void showDefaultMidiOutputMenu();

private:
    void addControls();
    void addScreens();
    void addPorts();
    void addSwitches();
    template <class Control>
    Control* add(Control* control, const QRect& rectangle, const QString& name, const QString& help);
    void addLabel(const QString& text, const QRect& rectangle);
    ComboBox* addChoices(const QRect& rectangle, const QString& name, const QString& help);
    QPushButton* addButton(const QString& label, const QRect& rectangle, const QString& name, const QString& help);
    QPushButton* addSwitch(const QString& label, const QRect& rectangle, const Switch& setting);

    Backend::OrvMessageManager& commands() const;
    void showAll();

    void saveRecord();
    void showFileMenu(const QWidget& button);

    OrvGuiIF& gui;
    StagePanel& stage;
    SystemGuiMessageManager messages;
    ComboBox* tempoSource = nullptr;  // owned by the panel
    ComboBox* output = nullptr;
    QPushButton* thruButton = nullptr;
    QPushButton* keyboardButton = nullptr;
    QPushButton* recordButton = nullptr;
    ScreenButtons* screens = nullptr;
    PopupMenu* menu;
};
}  // namespace Gui::System
