// The changes that the backend reports: each is stored in the window's copy, and shown if the window is open.
#include <utility>

#include "api/OrvIF.h"
#include "api/OrvMessageManager.h"
#include "api/ParentWindow.h"
#include "backend/model/Notice.h"
#include "backend/model/Recovery.h"
#include "gui/files/ProgramsDialog.h"
#include "gui/files/RecentFiles.h"
#include "gui/framework/EditPoster.h"
#include "gui/framework/FileNames.h"
#include "gui/framework/Question.h"
#include "gui/screens/system/StagePanel.h"
#include "gui/screens/system/SystemPanel.h"
#include "gui/window/OpenWindow.h"
#include "gui/window/OrvGui.h"

namespace Gui
{
using namespace Backend;
using MidiEngine::MidiInputPorts;
using MidiEngine::MidiOutputPorts;
using MidiEngine::OrvMidiMessage;

// --- settings

/// A setting that is only shown in the setup dialog.
template <class Value>
void OrvGui::keep(void (RegistrySettings::*set)(Value), const std::type_identity_t<Value>& value)
{
    (shown.settings.*set)(value);
    open->refreshSetup();
}

void OrvGui::handleSettingsChanged(const RegistrySettings& settings)
{
    shown.settings = settings;
    handleMidiThruChanged(settings.getMidiThru());
    handleGlobalKeyboardChanged(settings.getGlobalKeyboard());
    handleAlwaysOnTopChanged(settings.getAlwaysOnTop());
    handleUseSkinBorderChanged(settings.getUseSkinBorder());
    handleDefaultMidiOutputChanged(settings.getDefaultMidiOutput());
    handleRetroRecordEnabledChanged(settings.isRetroRecordEnabled());
    open->getScreens().handleSettingsChanged(settings);
    open->applyLook();
    open->refreshSetup();
}

void OrvGui::handleDockToBottomEdgeChanged(bool on) { keep(&RegistrySettings::setDockToBottomEdge, on); }

void OrvGui::handleDefaultBankChanged(const std::string& path) { keep(&RegistrySettings::setDefaultBank, path); }

void OrvGui::handleMouseSensitivityChanged(int divisor) { keep(&RegistrySettings::setMouseSensitivity, divisor); }

void OrvGui::handleRetroRecordBufferSizeChanged(int bytes) { keep(&RegistrySettings::setRetroRecordBufferSize, bytes); }

void OrvGui::handleClickZoneChannelTransposeChanged(bool on)
{
    keep(&RegistrySettings::setClickZoneChannelTranspose, on);
}

void OrvGui::handleAlwaysOnTopChanged(bool on)
{
    keep(&RegistrySettings::setAlwaysOnTop, on);
    open->parent.alwaysOnTopChanged(on);
}

void OrvGui::handleUseSkinBorderChanged(bool on)
{
    keep(&RegistrySettings::setUseSkinBorder, on);
    open->parent.useSkinBorderChanged(on);
}

void OrvGui::handleRetroRecordEnabledChanged(bool on)
{
    keep(&RegistrySettings::setRetroRecordEnabled, on);
    open->getScreens().getSystemPanel().handleRetroRecordEnabledChanged(on);
}

void OrvGui::handleMidiThruChanged(bool on)
{
    keep(&RegistrySettings::setMidiThru, on);
    open->main->setMidiThru(on);
    open->getScreens().getSystemPanel().handleMidiThruChanged(on);
}

void OrvGui::handleLargeDisplayFontChanged(bool on)
{
    keep(&RegistrySettings::setLargeDisplayFont, on);
    open->getScreens().handleLargeDisplayFontChanged(on);
}

void OrvGui::handleDefaultMidiOutputChanged(int output)
{
    keep(&RegistrySettings::setDefaultMidiOutput, output);
    open->getScreens().handleDefaultMidiOutputChanged(output);
}

void OrvGui::handleGlobalKeyboardChanged(bool on)
{
    globalKeyboard.setOn(on);
    showGlobalKeyboard(on);
}

void OrvGui::handleGlobalKeySwitched(bool on)
{
    showGlobalKeyboard(on);
    const OnOffToggle state{on ? OnOffToggle::State::on : OnOffToggle::State::off};
    getOrvMessageManager().postChangeGlobalKeyboard(state, false);
}

void OrvGui::showGlobalKeyboard(bool on)
{
    keep(&RegistrySettings::setGlobalKeyboard, on);
    open->main->setGlobalKeyboard(on);
    open->getScreens().getSystemPanel().handleGlobalKeyboardChanged(on);
    open->parent.globalKeyboardChanged(on);
}

void OrvGui::handleKeysChanged(const Backend::ComputerInput::KeyConfigurationMap& keys)
{
    globalKeyboard.setKeys(keys);
}

// --- bank, program and ports

void OrvGui::handleBankChanged(const Bank& bank)
{
    const bool isOther = bank.name != shown.bank.name;
    shown.bank = bank;
    open->getScreens().getSystemPanel().handleBankChanged(bank);
    if (open->programs) open->programs->follow();
    if (isOther) {
        Files::addRecentFile(*this, bank.name);
        open->parent.documentChanged(shownFileName(bank.name).toStdString());
    }
}

void OrvGui::handleProgramChanged(const Program& program)
{
    shown.program = program;
    open->edits.setProgram(program.number);
    open->getScreens().getSystemPanel().handleProgramChanged(program);
    if (open->programs) open->programs->follow();
    if (loading.empty()) return;
    const std::string loaded = std::exchange(loading, {});
    Files::addRecentFile(*this, loaded);
    displayMessage(QObject::tr("Loaded %1").arg(shownFileName(loaded)).toStdString());
}

/// Only a user who has just chosen the file gets a message box.
void OrvGui::handleProgramMissing(const Program& program)
{
    if (loading.empty()) return;
    const QString file = shownFileName(loading);
    const bool isBank = loading == shown.bank.name && !shown.bank.programNames.empty();
    showMessage(open->getDialogParent(), QObject::tr("Load"),
                isBank ? QObject::tr("\"%1\" has no program %2.").arg(file, QString::number(program.number + 1))
                       : QObject::tr("There is no program in \"%1\".").arg(file));
}

void OrvGui::handleEditDone(const EditDone& done)
{
    open->edits.acknowledge(done);
    open->getScreens().getStagePanel().handleEditDone(done);
}

void OrvGui::handleBankEditDone(const BankEditDone& done)
{
    open->getScreens().getStagePanel().handleBankEditDone(done);
    if (open->programs) open->programs->handleBankEditDone(done);
}

void OrvGui::handleSetListChanged(const SetList& list)
{
    open->getScreens().getStagePanel().handleSetListChanged(list);
}

void OrvGui::handleNotice(Notice notice, const std::string& text)
{
    const auto sentence = [notice] {
        switch (notice) {
            case Notice::noSuchProgram:
                return QObject::tr("The bank has no program %1.");
            case Notice::setListChanged:
                return QObject::tr("%1 was changed by another program and read again; your last change is not in it.");
            case Notice::setListNotWritten:
                return QObject::tr("%1 could not be written.");
        }
        return QString();
    };
    displayMessage(sentence().arg(shownFileName(text)).toStdString());
}

void OrvGui::handleProgramEdited(bool edited, int others)
{
    isEdited = edited;
    otherEdited = others;
    open->getScreens().getStagePanel().handleProgramEdited(edited, others);
}

void OrvGui::handleRecovery(RecoveryResult result, const std::string& path)
{
    if (std::exchange(open->recovery, result) == result) return;  // it is reported again with everything else
    const auto report = [this](const QString& text) { displayMessage(text.toStdString()); };
    const QString file = QString::fromStdString(path);
    if (result != RecoveryResult::notKept)
        open->getScreens().getStagePanel().offerDiscard(result == RecoveryResult::restored);
    switch (result) {
        case RecoveryResult::nothing:
            break;
        case RecoveryResult::restored:
            report(QObject::tr("What was not saved is there again. Discard goes back to what is saved."));
            break;
        case RecoveryResult::unreadable:
            report(QObject::tr("What was not saved cannot be read; the file is kept as \"%1\".").arg(file));
            break;
        case RecoveryResult::bankMissing:
            report(QObject::tr("What was not saved stays in \"%1\" until its bank can be loaded.").arg(file));
            break;
        case RecoveryResult::notKept:
            report(QObject::tr("No file can be written to \"%1\": after a crash, edits would be lost.").arg(file));
            break;
    }
}

void OrvGui::handleProgramNameChanged(const Program& program) { handleProgramChanged(program); }

void OrvGui::handleMidiInputPortsChanged(const MidiInputPorts& ports)
{
    shown.inputs = ports;
    open->getScreens().handleMidiInputPortsChanged(ports);
    open->refreshSetup();
}

void OrvGui::handleMidiOutputPortsChanged(const MidiOutputPorts& ports)
{
    shown.outputs = ports;
    open->getScreens().handleMidiOutputPortsChanged(ports);
    open->refreshSetup();
}

// --- what is played

void OrvGui::handleResetOrv() { clearMusicKeyboardHilight(); }

void OrvGui::showHostStatus(const HostStatus& status)
{
    if (open) open->getScreens().getStagePanel().handleHostStatus(status);
}

/// Also while the window is being closed.
void OrvGui::handleKeyTarget(KeyTarget target)
{
    if (open) open->parent.keysPlayChanged(target == KeyTarget::music);
}

void OrvGui::handleLearned(const Learned& learned) { open->learner.handleLearned(learned); }

void OrvGui::handleReceivedEvents(const std::vector<OrvMidiMessage>& events)
{
    open->inputWatch.handleReceivedEvents(events);
}

void OrvGui::handleSequenceSteps(const std::vector<int>& steps) { open->getScreens().handleSequenceSteps(steps); }

void OrvGui::displayMidiOutputEvent(const OrvMidiMessage& event) { open->getScreens().displayMidiOutputEvent(event); }
}  // namespace Gui
