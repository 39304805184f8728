#include "gui/window/OrvGui.h"

#include <QApplication>
#include <algorithm>
#include <filesystem>
#include <utility>

#include "api/OrvIF.h"
#include "api/OrvMessageManager.h"
#include "api/ParentWindow.h"
#include "backend/bindings/functions/HelpTexts.h"
#include "backend/messages/SettingMessages.h"
#include "backend/model/WindowMove.h"
#include "gui/framework/FileNames.h"
#include "gui/framework/Properties.h"
#include "gui/screens/computerinput/ComputerInputPanel.h"
#include "gui/screens/computerinput/ComputerKeyboardCtl.h"
#include "gui/screens/help/HelpPanel.h"
#include "gui/screens/output/OutputPanel.h"
#include "gui/screens/system/StagePanel.h"
#include "gui/screens/system/SystemPanel.h"
#include "gui/window/OpenWindow.h"
#include "gui/window/OrvGuiFactory.h"
#include "platform/Path.h"

namespace Gui
{
using namespace Backend;
using MidiEngine::OrvMidiMessage;

OrvGuiIF* OrvGuiFactory::createOrvGui(OrvIF& orv, GuiStart start) { return new OrvGui(orv, std::move(start)); }

OrvGui::OrvGui(OrvIF& backend, GuiStart start) : orv(backend), shown(std::move(start)) {}

OrvGui::~OrvGui() { destroy(); }

void OrvGui::initialize() { sequencePresets.load(); }

void OrvGui::end() { destroy(); }

bool OrvGui::create(ParentWindow& parentWindow)
{
    if (open || qobject_cast<QApplication*>(QCoreApplication::instance()) == nullptr) return false;
    messageManagers.setThreadId(std::this_thread::get_id());
    parentWindow.alwaysOnTopChanged(shown.settings.getAlwaysOnTop());
    parentWindow.useSkinBorderChanged(shown.settings.getUseSkinBorder());
    open = std::make_unique<OpenWindow>(*this, parentWindow);
    open->makeMainWindow();
    open->getScreens().setState(shown.screens);
    open->applyLook();
    open->show();
    setFocus();
    if (!shown.bank.name.empty()) parentWindow.documentChanged(shownFileName(shown.bank.name).toStdString());
    globalKeyboard.open(getWindowHandle(), shown.settings.getGlobalKeyboard());
    orv.setGuiWindowHandle(getWindowHandle());
    getOrvMessageManager().postRefreshGui();
    return true;
}

void OrvGui::destroy()
{
    if (!open) return;
    shown.screens = open->getScreens().getState();
    shown.settings.setLastWindowPosition(getMainWindowPosition());
    getOrvMessageManager().postSetScreenState(shown.screens);
    if (!shown.isVstPlugin) getOrvMessageManager().postSetLastWindowPosition(getMainWindowPosition());
    orv.removeGuiWindowHandle();
    globalKeyboard.close();
    open->main->hide();  // releases the keys while everything they need exists
    open.reset();
}

GdiManager& OrvGui::getGdiManager() { return open->gdi; }

Skinner& OrvGui::getSkinner() { return open->skinner; }

int OrvGui::getMouseSensitivity() const { return std::max(1, shown.settings.getMouseSensitivity()); }

WindowHandle OrvGui::getWindowHandle() const { return open ? open->window.getHandle() : WindowHandle(); }

OrvMessageManager& OrvGui::getOrvMessageManager() { return orv.getOrvMessageManager(); }

// --- screens

void OrvGui::showScreen(Screen screen, bool on)
{
    open->getScreens().showScreen(screen, on);
    if (screen == Screen::system) open->parent.systemPanelShown(on);
}

void OrvGui::toggleScreen(Screen screen) { showScreen(screen, !isScreenShowing(screen)); }

bool OrvGui::isScreenShowing(Screen screen) const { return open && open->getScreens().isShowing(screen); }

void OrvGui::setCompact(bool on)
{
    if (open) open->main->setCompact(on);
}

bool OrvGui::isCompact() const { return open && open->main->isCompact(); }

void OrvGui::setScale(int percent)
{
    using Setting = Settings::Number;
    constexpr const Setting& row = Settings::WINDOW_SCALE;
    const int wanted = std::clamp(percent, row.lowest, row.highest);
    shown.settings.set<Settings::WINDOW_SCALE>(wanted);
    refit();
    getOrvMessageManager().postSetting(SETTING<Settings::WINDOW_SCALE>(wanted));
}

void OrvGui::setHeight(int height)
{
    shown.settings.set<Settings::WINDOW_HEIGHT>(height);
    getOrvMessageManager().postSetting(SETTING<Settings::WINDOW_HEIGHT>(height));
}

void OrvGui::refit()
{
    if (open) open->applyLook();
}

EditPoster& OrvGui::getEdits() { return open->edits; }

Learner& OrvGui::getLearner() { return open->learner; }

InputWatch& OrvGui::getInputWatch() { return open->inputWatch; }
Forms::EditableSections& OrvGui::getEditableSections() { return open->sections; }

void OrvGui::setFocus()
{
    if (QWidget* const learning = open->learner.getLearning())
        learning->setFocus();
    else
        open->main->setPlayingFocus();
}

void OrvGui::showProgramMenu() { open->getScreens().getStagePanel().showProgramList(); }

void OrvGui::showDefaultMidiOutputMenu() { open->getScreens().getSystemPanel().showDefaultMidiOutputMenu(); }

/// The backend does not report every change of a setting, so all of them are requested.
void OrvGui::showSetupDialog()
{
    if (open && open->showSetupDialog()) getOrvMessageManager().postRefreshGui();
}

Preset::PresetGuiOwner& OrvGui::getComputerInputPanelAsPresetGuiOwner()
{
    return open->getScreens().getComputerInputPanel().getPresets();
}

// --- keys and keyboards

KeyPresses& OrvGui::getKeyPresses() { return open->main->getKeyPresses(); }

Output::MusicKeyboardCtl& OrvGui::getMainMusicKeyboardCtl()
{
    return open->getScreens().getOutputPanel().getMusicKeyboardCtl();
}

void OrvGui::clearMusicKeyboardHilight() { open->getScreens().getOutputPanel().clearHilight(); }

void OrvGui::clearComputerKeyboardHilight() { open->getScreens().getComputerInputPanel().getKeyboard().clearHilight(); }

// --- help

void OrvGui::displayHelp(const QWidget& control)
{
    displayHelp(control.property(Property::HELP).toString().toStdString());
}

/// An empty text changes nothing.
void OrvGui::displayHelp(const std::string& text)
{
    if (open && open->main && !text.empty()) open->getScreens().getHelpPanel().showText(text);
}

void OrvGui::displayMessage(const std::string& text)
{
    if (open) open->getScreens().getStagePanel().showMessage(QString::fromStdString(text).replace('\n', ' '));
    displayHelp(text);
}

void OrvGui::displayHelp(int helpId) { displayHelp(helpText(helpId)); }

// --- the position on the desktop

void OrvGui::moveWindow(const WindowMove& move) { open->move(move); }

void OrvGui::setDockToBottomEdge(bool on) { getOrvMessageManager().postSetDockToBottomEdge(on); }

WindowsLib::Rect OrvGui::getMainWindowPosition() const
{
    return open ? open->getPosition() : shown.settings.getLastWindowPosition();
}

// --- names

std::string OrvGui::getMidiOutputName(int output) const
{
    if (output == OrvMidiMessage::DEFAULT_OUTPUT) return "Default";
    const auto index = static_cast<std::size_t>(output);
    return output < 0 || index >= shown.outputs.size() ? "???" : shown.outputs[index].getName();
}

int OrvGui::getNumberOfPrograms() const { return static_cast<int>(shown.bank.programNames.size()); }

std::string OrvGui::getCurrentBankName() const { return textOf(pathOf(shown.bank.name).stem()); }
}  // namespace Gui
