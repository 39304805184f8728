#include "gui/screens/system/SystemPanel.h"

#include <QCursor>
#include <QLabel>
#include <QPushButton>

#include "api/Bank.h"
#include "api/OrvGuiIF.h"
#include "api/OrvIF.h"
#include "api/OrvMessageManager.h"
#include "backend/files/RegistrySettings.h"
#include "backend/model/Program.h"
#include "gui/files/FileCommands.h"
#include "gui/framework/ComboBox.h"
#include "gui/framework/GuiMessageManagerMaster.h"
#include "gui/framework/PopupMenu.h"
#include "gui/framework/Properties.h"
#include "gui/keyboard/GlobalKeyboard.h"
#include "gui/screens/system/ProgramNameComboBox.h"
#include "gui/screens/system/RecordFile.h"
#include "gui/screens/system/RecordGauge.h"
#include "gui/screens/system/ScreenButtons.h"
#include "gui/screens/system/TempoEdit.h"

namespace Gui::System
{
using namespace Backend;
using MidiEngine::MidiInputPorts;
using MidiEngine::MidiOutputPorts;
using MidiEngine::MidiPort;

namespace
{
ComboBox::Entry entryOf(const MidiPort& port)
{
    return {.text = QString::fromStdString(port.getDisplayName()),
            .enabled = port.enabled && port.found && !port.couldNotOpen};
}

/// Shows `otherwise` for a choice that is not in the list.
void select(ComboBox& choices, int index, const QString& otherwise)
{
    choices.setSelectedIndex(index);
    if (choices.getSelectedIndex() < 0) choices.setText(otherwise);
}
}  // namespace

SystemPanel::SystemPanel(OrvGuiIF& owner, Panel* around)
    : Panel(around), gui(owner), messages(*this), menu(new PopupMenu(this))
{
    addControls();
    showAll();
    gui.getGuiMessageManagerMaster().addMessageManager(&messages);
}

OrvMessageManager& SystemPanel::commands() const { return gui.getOrvMessageManager(); }

/// Shows the data that the window has.
void SystemPanel::showAll()
{
    const RegistrySettings& settings = gui.getRegistrySettings();
    handleBankChanged(gui.getCurrentBank());
    handleMidiInputPortsChanged(gui.getMidiInputPorts());
    handleMidiOutputPortsChanged(gui.getMidiOutputPorts());
    handleProgramChanged(gui.getCurrentProgram());
    handleMidiThruChanged(settings.getMidiThru());
    handleGlobalKeyboardChanged(settings.getGlobalKeyboard());
    handleRetroRecordEnabledChanged(settings.isRetroRecordEnabled());
}

// --- changes that the backend reports

void SystemPanel::handleBankChanged(const Bank& bank)
{
    programs->setProgramNames(bank.programNames);
    const QString name = QString::fromStdString(gui.getCurrentBankName());
    bankName->setText(bankName->fontMetrics().elidedText(name, Qt::ElideMiddle, bankName->width()));
    bankName->setAccessibleName(name);
    Property::setHelp(*bankName, tr("Bank: %1").arg(QString::fromStdString(bank.name)));
    const auto size = bank.programNames.size();
    bankSize->setText(size == 1 ? tr("1 program") : tr("%1 programs").arg(size));
}

void SystemPanel::handleProgramChanged(const Program& program)
{
    programNumber->setText(QString::number(program.number + 1));
    programs->showProgram(program.number, QString::fromStdString(program.name));
    tempo->showTempo(program.tempo);
    select(*tempoSource, program.tempoSource + 1, QStringLiteral("???"));
}

void SystemPanel::handleMidiInputPortsChanged(const MidiInputPorts& ports)
{
    std::vector<ComboBox::Entry> entries{{.text = tr("Internal")}};
    for (const MidiPort& port : ports) entries.push_back(entryOf(port));
    tempoSource->setEntries(std::move(entries));
    select(*tempoSource, gui.getCurrentProgram().tempoSource + 1, QStringLiteral("???"));
}

void SystemPanel::handleMidiOutputPortsChanged(const MidiOutputPorts& ports)
{
    std::vector<ComboBox::Entry> entries;
    for (const MidiPort& port : ports) entries.push_back(entryOf(port));
    output->setEntries(std::move(entries));
    handleDefaultMidiOutputChanged(gui.getDefaultMidiOutput());
}

void SystemPanel::handleDefaultMidiOutputChanged(int index)
{
    select(*output, index, index < 0 ? tr("None") : QString::fromStdString(gui.getMidiOutputName(index)));
}

void SystemPanel::handleMidiThruChanged(bool on) { thruButton->setChecked(on); }

void SystemPanel::handleGlobalKeyboardChanged(bool on)
{
    keyboardButton->setChecked(on);
    Property::setHelp(*keyboardButton, QString::fromStdString(GlobalKeyboard::describe(gui.getGlobalKeyboardReason())));
}

void SystemPanel::handleRetroRecordEnabledChanged(bool on) { recordButton->setChecked(on); }

void SystemPanel::handleRetroRecordFillChanged(int percent) { recordGauge->showFill(percent); }

void SystemPanel::handleRetroRecordSaved(const RetroRecord::SaveReport& report)
{
    gui.displayHelp(RecordFile::describe(report));
}

// --- screens

void SystemPanel::offerScreen(Screen screen) { screens->offerScreen(screen); }

void SystemPanel::screenShown(Screen screen, bool on) { screens->screenShown(screen, on); }

// --- menus

void SystemPanel::showMenu(ComboBox& choices)
{
    if (isVisible()) return choices.openMenu();
    if (choices.getEntries().empty()) return;
    menu->clear();
    for (const ComboBox::Entry& entry : choices.getEntries())
        menu->addItem({.text = entry.text, .enabled = entry.enabled});
    menu->setSelected(choices.getSelectedIndex());
    menu->onChosen = [&choices](int index) { choices.onChange(index); };
    menu->show(QCursor::pos());
}

void SystemPanel::showProgramMenu()
{
    programs->cancelTyping();
    showMenu(*programs);
}

void SystemPanel::showDefaultMidiOutputMenu() { showMenu(*output); }

void SystemPanel::showFileMenu(const QWidget& button)
{
    const std::string& bank = gui.getCurrentBank().name;
    menu->clear();
    menu->addItem({.text = tr("Change Bank Size..."), .enabled = gui.getNumberOfPrograms() > 0});
    menu->addItem({.text = tr("Set As Default Bank..."),
                   .enabled = !bank.empty() && bank != gui.getRegistrySettings().getDefaultBank()});
    menu->addItem(tr("Import Version 2 File..."));
    menu->setSelected(-1);
    menu->onChosen = [this](int item) {
        if (item == 0) Files::showBankSizeDialog(gui, *this);
        if (item == 1) Files::makeDefaultBank(gui, *this);
        if (item == 2) gui.importVersion2File();
    };
    menu->showBelow(button);
}

// --- what the user does

void SystemPanel::saveRecord() { commands().postSaveRetroRecord(RecordFile::stem()); }

/// Ends editing and gives the focus back to playing.
void SystemPanel::leave()
{
    if (QWidget* edit = window()->focusWidget()) edit->clearFocus();
    gui.setFocus();
}
}  // namespace Gui::System
