#include "gui/screens/system/SystemPanel.h"

#include <QCursor>
#include <QPushButton>

#include "api/Bank.h"
#include "api/OrvGuiIF.h"
#include "api/OrvIF.h"
#include "api/OrvMessageManager.h"
#include "backend/files/RegistrySettings.h"
#include "backend/model/Program.h"
#include "gui/files/FileCommands.h"
#include "gui/files/RecentFiles.h"
#include "gui/framework/ComboBox.h"
#include "gui/framework/FileNames.h"
#include "gui/framework/GuiMessageManagerMaster.h"
#include "gui/framework/PopupMenu.h"
#include "gui/framework/Properties.h"
#include "gui/keyboard/GlobalKeyboard.h"
#include "gui/screens/system/RecordFile.h"
#include "gui/screens/system/ScreenButtons.h"
#include "gui/screens/system/StagePanel.h"

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

SystemPanel::SystemPanel(OrvGuiIF& owner, StagePanel& stagePanel, Panel* around)
    : Panel(around), gui(owner), stage(stagePanel), messages(*this), menu(new PopupMenu(this))
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

void SystemPanel::handleBankChanged(const Bank& bank) { stage.handleBankChanged(bank); }

void SystemPanel::handleProgramChanged(const Program& program)
{
    stage.handleProgramChanged(program);
    select(*tempoSource, program.tempoSource + 1, QStringLiteral("???"));
}

void SystemPanel::handleMidiInputPortsChanged(const MidiInputPorts& ports)
{
    std::vector<ComboBox::Entry> entries{{.text = tr("Internal")}};
    for (const MidiPort& port : ports) entries.push_back(entryOf(port));
    tempoSource->setEntries(std::move(entries));
    stage.handleMidiInputPortsChanged(ports);
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
    stage.handleOutputChanged();
    select(*output, index, index < 0 ? tr("None") : QString::fromStdString(gui.getMidiOutputName(index)));
}

void SystemPanel::handleMidiThruChanged(bool on) { thruButton->setChecked(on); }

void SystemPanel::handleGlobalKeyboardChanged(bool on)
{
    keyboardButton->setChecked(on);
    Property::setHelp(*keyboardButton, QString::fromStdString(GlobalKeyboard::describe(gui.getGlobalKeyboardReason())));
}

void SystemPanel::handleRetroRecordEnabledChanged(bool on)
{
    recordButton->setChecked(on);
    stage.handleRetroRecordEnabledChanged(on);
}

void SystemPanel::handleRetroRecordFillChanged(int percent) { stage.handleRetroRecordFillChanged(percent); }

void SystemPanel::handleRetroRecordSaved(const RetroRecord::SaveReport& report)
{
    gui.displayMessage(RecordFile::describe(report));
}

// --- screens

void SystemPanel::offerScreen(Screen screen) { screens->offerScreen(screen); }

void SystemPanel::screenShown(Screen screen, bool on) { screens->screenShown(screen, on); }

// --- menus

void SystemPanel::showDefaultMidiOutputMenu()
{
    if (isVisible()) return output->openMenu();
    if (output->getEntries().empty()) return;
    menu->clear();
    for (const ComboBox::Entry& entry : output->getEntries())
        menu->addItem({.text = entry.text, .enabled = entry.enabled});
    menu->setSelected(output->getSelectedIndex());
    menu->onChosen = [this](int index) { output->onChange(index); };
    menu->show(QCursor::pos());
}

void SystemPanel::showFileMenu(const QWidget& button)
{
    const std::string& bank = gui.getCurrentBank().name;
    constexpr int FIRST_RECENT = 100;
    menu->clear();
    menu->addItem(tr("Load..."));
    menu->addItem(tr("Save..."));
    menu->addItem({.text = tr("Change Bank Size..."), .enabled = gui.getNumberOfPrograms() > 0});
    menu->addItem({.text = tr("Set As Default Bank..."),
                   .enabled = !bank.empty() && bank != gui.getRegistrySettings().getDefaultBank()});
    menu->addItem(tr("Import Version 2 File..."));
    menu->addItem({.text = tr("Programs..."), .enabled = gui.getNumberOfPrograms() > 0});
    menu->addItem(tr("New Bank..."));
    menu->addItem({.text = tr("Save Bank As..."), .enabled = !bank.empty()});
    menu->addItem({.text = tr("Set List..."), .enabled = gui.getNumberOfPrograms() > 0});
    const std::vector<std::string> recent = Files::getRecentFiles(gui);
    PopupMenu& recentMenu = menu->addSubMenu(tr("Recent Files"), !recent.empty());
    int id = FIRST_RECENT;
    for (const std::string& path : recent) {
        QAction& item = recentMenu.addItem({.text = shownFileName(path), .id = id++});
        item.setToolTip(QString::fromStdString(path));
    }
    menu->setSelected(-1);
    menu->onChosen = [this, recent](int item) {
        if (item >= FIRST_RECENT) gui.loadFile(recent[static_cast<std::size_t>(item - FIRST_RECENT)]);
        if (item == 0) gui.showLoadDialog();
        if (item == 1) gui.showSaveDialog();
        if (item == 2) Files::showBankSizeDialog(gui, *this);
        if (item == 3) Files::makeDefaultBank(gui, *this);
        if (item == 4) gui.importVersion2File();
        if (item == 5) gui.showProgramsDialog();
        if (item == 6) Files::makeNewBank(gui, *this);
        if (item == 7) Files::saveBankAs(gui, *this);
        if (item == 8) stage.showSetList();
    };
    menu->showBelow(button);
}

// --- what the user does

void SystemPanel::saveRecord() { commands().postSaveRetroRecord(RecordFile::stem()); }
}  // namespace Gui::System
