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
}  // namespace Gui

namespace Gui::System
{
class ProgramNameComboBox;
class RecordGauge;
class ScreenButtons;
class TempoEdit;

/// The program and the bank it comes from, tempo, output, what is passed on and recorded, and the other screens. What
/// the user does is posted to the backend; what it tells is shown and answered by nothing.
class SystemPanel final : public Panel
{
public:
    SystemPanel(OrvGuiIF& owner, Panel* around);
    ~SystemPanel() override;

    // What the backend tells
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

    /// Gives a screen its button.
    void offerScreen(Backend::Screen screen);
    void screenShown(Backend::Screen screen, bool on);

    /// At their controls, or at the pointer while the panel is hidden. They return at once.
    void showProgramMenu();
    void showDefaultMidiOutputMenu();

private:
    // SystemPanelRows.cpp: what it consists of
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
    QPushButton* addSwitch(const QString& label, const QRect& place, const QString& name, const QString& help);

    Backend::OrvMessageManager& commands() const;
    void showAll();

    void saveRecord();
    void leave();
    void showMenu(ComboBox& choices);
    void showFileMenu(const QWidget& button);

    OrvGuiIF& gui;
    SystemGuiMessageManager messages;
    QLabel* programNumber = nullptr;  // these belong to the panel, as Qt has it
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
