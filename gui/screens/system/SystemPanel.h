#pragma once

#include <string>

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
class ProgramNameComboBox;
class RecordGauge;
class ScreenButtons;
class TempoEdit;

/// The system screen: program and bank, tempo, default output, MIDI thru, the record, and the buttons of the other
/// screens. It posts what the user does to the backend; changes that the backend reports are shown and posted nowhere.
class SystemPanel final : public Panel
{
public:
    SystemPanel(OrvGuiIF& owner, Panel* around);

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

    /// Open at their controls, or at the pointer while the panel is hidden, and return at once.
    void showProgramMenu();
    void showDefaultMidiOutputMenu();

private:
    // SystemPanelRows.cpp: the controls
    void addControls();
    void addProgram();
    void addBank();
    void addTempo();
    void addOutput();
    void addSwitches();
    void addScreens();
    void addRecord();
    void addFiles();
    template <class Control>
    Control* add(Control* control, const QRect& place, const QString& name, const QString& help);
    QLabel* addLabel(const QString& text, const QRect& place);
    QLabel* addValue(const QRect& place);
    ComboBox* addChoices(const QRect& place, const QString& name, const QString& help);
    QPushButton* addButton(const QString& label, const QRect& place, const QString& name, const QString& help);
    QPushButton* addSwitch(const QString& label, const QRect& place, const Switch& setting);

    Backend::OrvMessageManager& commands() const;
    void showAll();

    void saveRecord();
    void leave();
    void showMenu(ComboBox& choices);
    void showFileMenu(const QWidget& button);

    OrvGuiIF& gui;
    SystemGuiMessageManager messages;
    QLabel* programNumber = nullptr;  // owned by the panel
    ProgramNameComboBox* programs = nullptr;
    QLabel* bankName = nullptr;
    QLabel* bankSize = nullptr;
    TempoEdit* tempo = nullptr;
    ComboBox* tempoSource = nullptr;
    ComboBox* output = nullptr;
    QPushButton* thruButton = nullptr;
    QPushButton* keyboardButton = nullptr;
    QPushButton* recordButton = nullptr;
    RecordGauge* recordGauge = nullptr;
    ScreenButtons* screens = nullptr;
    PopupMenu* menu;
};
}  // namespace Gui::System
