#include "gui/window/OrvGui.h"

#include <QApplication>
#include <QGuiApplication>
#include <QPointer>
#include <QScreen>
#include <QVariant>
#include <QWindow>
#include <algorithm>
#include <filesystem>
#include <utility>

#include "api/OrvIF.h"
#include "api/OrvMessageManager.h"
#include "backend/bindings/functions/HelpTexts.h"
#include "backend/model/WindowMove.h"
#include "gui/OrvGuiFactory.h"
#include "gui/ParentWindow.h"
#include "gui/files/FileCommands.h"
#include "gui/framework/FileNames.h"
#include "gui/framework/GdiManager.h"
#include "gui/framework/GuiWindow.h"
#include "gui/framework/Properties.h"
#include "gui/framework/Question.h"
#include "gui/framework/Skinner.h"
#include "gui/keyboard/GlobalKeyMessageManager.h"
#include "gui/screens/computerinput/ComputerInputPanel.h"
#include "gui/screens/computerinput/ComputerKeyboardCtl.h"
#include "gui/screens/display/DisplayPanel.h"
#include "gui/screens/help/HelpPanel.h"
#include "gui/screens/output/OutputPanel.h"
#include "gui/screens/setup/SetupDialog.h"
#include "gui/screens/system/SystemPanel.h"
#include "gui/window/MainWindow.h"
#include "gui/window/OrvGuiMessageManager.h"
#include "platform/Path.h"

namespace Gui
{
using namespace Backend;
using MidiEngine::MidiInputPorts;
using MidiEngine::MidiOutputPorts;
using MidiEngine::OrvMidiMessage;

namespace
{
constexpr RelativeFixedValue UNCHANGED{.relative = true, .value = 0};

RelativeFixedValue by(int pixels) { return {.relative = true, .value = pixels}; }
RelativeFixedValue to(int pixels) { return {.relative = false, .value = pixels}; }
}  // namespace

OrvGuiIF* OrvGuiFactory::createOrvGui(OrvIF& orv, GuiStart start) { return new OrvGui(orv, std::move(start)); }

/// All that lives while the window is open. What is made last goes first.
struct OrvGui::Desk {
    Desk(OrvGui& gui, ParentWindow& parentWindow)
        : parent(parentWindow), skinner(gdi), messages(gui), globalKeys(gui), window([&gui](Message& message) {
              gui.messageManagers.handleMessage(message);
          })
    {
    }

    void open(OrvGui& gui)
    {
        main = std::make_unique<MainWindow>(gui, parent.getWidget(),
                                            [&gui, this](QSize before, QSize now) { followSize(gui, before, now); });
        skinner.skinWindow(*main);
    }

    /// The surroundings follow, and with docking the bottom edge stays where it was.
    void followSize(const OrvGui& gui, QSize before, QSize now) const
    {
        parent.windowResized(now.width(), now.height());
        if (placed && gui.shown.settings.getDockToBottomEdge() && before.height() != now.height())
            parent.moveWindow(UNCHANGED, by(before.height() - now.height()));
    }

    ParentWindow& parent;
    bool placed = false;  // until then its bottom edge means nothing
    GdiManager gdi;
    Skinner skinner;
    OrvGuiMessageManager messages;
    GlobalKeyMessageManager globalKeys;
    GuiWindow window;
    std::unique_ptr<MainWindow> main;
    QPointer<Setup::SetupDialog> setup;  // while it is open; it belongs to the main window
};

OrvGui::OrvGui(OrvIF& backend, GuiStart start) : orv(backend), shown(std::move(start)) {}

OrvGui::~OrvGui() { destroy(); }

void OrvGui::initialize() { sequencePresets.load(); }

void OrvGui::end() { destroy(); }

bool OrvGui::create(ParentWindow& parentWindow)
{
    if (desk || qobject_cast<QApplication*>(QCoreApplication::instance()) == nullptr) return false;
    messageManagers.setThreadId(std::this_thread::get_id());
    desk = std::make_unique<Desk>(*this, parentWindow);
    messageManagers.addMessageManager(&desk->messages);
    messageManagers.addMessageManager(&desk->globalKeys);
    desk->open(*this);  // its screens look for what is on the desk
    desk->main->setScreenState(shown.screens);
    if (const auto native = parentWindow.getNativeWindow(); native != 0 && parentWindow.getWidget() == nullptr) {
        desk->main->winId();
        desk->main->windowHandle()->setParent(QWindow::fromWinId(static_cast<WId>(native)));
    }
    desk->main->show();
    placeWindow();
    setFocus();
    globalKeyboard.open(desk->window.getHandle(), shown.settings.getGlobalKeyboard());
    orv.setGuiWindowHandle(desk->window.getHandle());
    getOrvMessageManager().postRefreshGui();
    return true;
}

void OrvGui::destroy()
{
    if (!desk) return;
    shown.screens = desk->main->getScreenState();
    shown.settings.setLastWindowPosition(getMainWindowPosition());
    getOrvMessageManager().postSetScreenState(shown.screens);
    if (!shown.isVstPlugin) getOrvMessageManager().postSetLastWindowPosition(getMainWindowPosition());
    orv.removeGuiWindowHandle();
    globalKeyboard.close();
    desk->main->hide();  // it lets go of the keys while all is there
    messageManagers.clear();
    desk.reset();
}

/// Where it was when it was last closed, if there is a screen at that place.
void OrvGui::placeWindow()
{
    if (!shown.isVstPlugin) {
        const auto last = shown.settings.getLastWindowPosition();
        const int height = desk->main->window()->frameGeometry().height();
        const QPoint place(last.left, shown.settings.getDockToBottomEdge() ? last.bottom - height : last.top);
        if (place.x() >= 0 && place.y() >= 0 && QGuiApplication::screenAt(place) != nullptr)
            desk->parent.moveWindow(to(place.x()), to(place.y()));
    }
    desk->placed = true;
}

GdiManager& OrvGui::getGdiManager() { return desk->gdi; }

Skinner& OrvGui::getSkinner() { return desk->skinner; }

int OrvGui::getMouseSensitivity() const { return std::max(1, shown.settings.getMouseSensitivity()); }

WindowHandle OrvGui::getWindowHandle() const { return desk ? desk->window.getHandle() : WindowHandle(); }

OrvMessageManager& OrvGui::getOrvMessageManager() { return orv.getOrvMessageManager(); }

// --- what the backend tells

void OrvGui::handleSettingsChanged(const RegistrySettings& settings)
{
    shown.settings = settings;
    handleMidiThruChanged(settings.getMidiThru());
    handleGlobalKeyboardChanged(settings.getGlobalKeyboard());
    handleAlwaysOnTopChanged(settings.getAlwaysOnTop());
    handleUseSkinBorderChanged(settings.getUseSkinBorder());
    handleLargeDisplayFontChanged(settings.getLargeDisplayFont());
    handleDefaultMidiOutputChanged(settings.getDefaultMidiOutput());
    handleRetroRecordEnabledChanged(settings.isRetroRecordEnabled());
    desk->main->getDisplayPanel().handleSettingsChanged(settings);
    settingsChanged();
}

/// What shows settings and the ports they are about.
void OrvGui::settingsChanged()
{
    if (desk->setup) desk->setup->follow();
}

void OrvGui::handleDockToBottomEdgeChanged(bool on)
{
    shown.settings.setDockToBottomEdge(on);
    settingsChanged();
}

void OrvGui::handleDefaultBankChanged(const std::string& path)
{
    shown.settings.setDefaultBank(path);
    settingsChanged();
}

void OrvGui::handleBankChanged(const Bank& bank)
{
    shown.bank = bank;
    desk->main->getSystemPanel().handleBankChanged(bank);
}

void OrvGui::handleProgramChanged(const Program& program)
{
    shown.program = program;
    desk->main->getSystemPanel().handleProgramChanged(program);
    loading.clear();
}

/// Nobody is interrupted by a message but who has just chosen the file.
void OrvGui::handleProgramMissing(const Program& program)
{
    if (loading.empty()) return;
    const QString file = shownFileName(loading);
    const bool isBank = loading == shown.bank.name && !shown.bank.programNames.empty();
    showMessage(dialogParent(), QObject::tr("Load"),
         isBank ? QObject::tr("\"%1\" has no program %2.").arg(file, QString::number(program.number + 1))
                : QObject::tr("There is no program in \"%1\".").arg(file));
}

void OrvGui::handleProgramNameChanged(const Program& program) { handleProgramChanged(program); }

void OrvGui::handleMidiInputPortsChanged(const MidiInputPorts& ports)
{
    shown.inputs = ports;
    desk->main->getSystemPanel().handleMidiInputPortsChanged(ports);
    settingsChanged();
}

void OrvGui::handleMidiOutputPortsChanged(const MidiOutputPorts& ports)
{
    shown.outputs = ports;
    desk->main->getOutputPanel().handleMidiOutputPortsChanged(ports);
    desk->main->getSystemPanel().handleMidiOutputPortsChanged(ports);
    settingsChanged();
}

void OrvGui::handleDefaultMidiOutputChanged(int output)
{
    shown.settings.setDefaultMidiOutput(output);
    desk->main->getOutputPanel().handleDefaultMidiOutputChanged(output);
    desk->main->getSystemPanel().handleDefaultMidiOutputChanged(output);
    settingsChanged();
}

void OrvGui::handleAlwaysOnTopChanged(bool on)
{
    shown.settings.setAlwaysOnTop(on);
    desk->parent.alwaysOnTopChanged(on);
    settingsChanged();
}

void OrvGui::handleUseSkinBorderChanged(bool on)
{
    shown.settings.setUseSkinBorder(on);
    desk->parent.useSkinBorderChanged(on);
    settingsChanged();
}

void OrvGui::handleRetroRecordEnabledChanged(bool on)
{
    shown.settings.setRetroRecordEnabled(on);
    desk->main->getSystemPanel().handleRetroRecordEnabledChanged(on);
    settingsChanged();
}

void OrvGui::handleRetroRecordBufferSizeChanged(int bytes)
{
    shown.settings.setRetroRecordBufferSize(bytes);
    settingsChanged();
}

void OrvGui::handleMidiThruChanged(bool on)
{
    shown.settings.setMidiThru(on);
    desk->main->setMidiThru(on);
    desk->main->getSystemPanel().handleMidiThruChanged(on);
    settingsChanged();
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

void OrvGui::handleKeysChanged(const Backend::ComputerInput::KeyConfigurationMap& keys)
{
    globalKeyboard.setKeys(keys);
}

void OrvGui::showGlobalKeyboard(bool on)
{
    shown.settings.setGlobalKeyboard(on);
    desk->main->setGlobalKeyboard(on);
    desk->main->getSystemPanel().handleGlobalKeyboardChanged(on);
    desk->parent.globalKeyboardChanged(on);
    settingsChanged();
}

void OrvGui::handleMouseSensitivityChanged(int divisor)
{
    shown.settings.setMouseSensitivity(divisor);
    settingsChanged();
}

void OrvGui::handleLargeDisplayFontChanged(bool on)
{
    shown.settings.setLargeDisplayFont(on);
    desk->main->getDisplayPanel().handleLargeDisplayFontChanged(on);
    settingsChanged();
}

void OrvGui::handleClickZoneChannelTransposeChanged(bool on)
{
    shown.settings.setClickZoneChannelTranspose(on);
    settingsChanged();
}

void OrvGui::handleResetOrv() { clearMusicKeyboardHilight(); }

void OrvGui::displayMidiOutputEvent(const OrvMidiMessage& event)
{
    orv.displayMidiOutputEvent(event);
    desk->main->getOutputPanel().displayMidiOutputEvent(event);
}

// --- files and presets

/// The dialog that is on top, or the window.
QWidget& OrvGui::dialogParent() const
{
    QWidget* dialog = QApplication::activeModalWidget();
    return dialog != nullptr && desk->main->contains(*dialog) ? *dialog : *desk->main;
}

void OrvGui::showSaveDialog()
{
    if (!desk->main->hasDialog()) Files::showSaveDialog(*this, *desk->main);
}

void OrvGui::showLoadDialog()
{
    if (!desk->main->hasDialog()) Files::showLoadDialog(*this, *desk->main);
}

void OrvGui::importVersion2File()
{
    if (!desk->main->hasDialog()) Files::importVersion2File(*this, *desk->main);
}

void OrvGui::loadFile(const std::string& path)
{
    loading = path;
    if (path.ends_with(".prg"))
        getOrvMessageManager().postLoadProgram(path);
    else
        getOrvMessageManager().postLoadBank(path);
}

void OrvGui::handlePresetsChanged(std::size_t section, const PresetList& presets, bool done)
{
    if (section >= presetLists.size()) return;
    presetLists[section] = presets;
    if (section == PresetSections::indexOf(PresetSections::COMPUTER_INPUT))
        desk->main->getComputerInputPanel().handlePresetsChanged(presets);
    if (!done)
        showMessage(dialogParent(), QObject::tr("Error"),
             QObject::tr("The folder \"%1\" could not be changed.").arg(PresetSections::ALL[section].folder));
}

const PresetList& OrvGui::getPresetList(const PresetSection& section) const
{
    return presetLists[PresetSections::indexOf(section)];
}

Preset::PresetGuiOwner& OrvGui::getComputerInputPanelAsPresetGuiOwner()
{
    return desk->main->getComputerInputPanel().getPresets();
}

bool OrvGui::addSequencePreset(const std::string& name, const std::string& text)
{
    if (!sequencePresets.addPreset(name, text)) return false;
    getOrvMessageManager().postAddSequencePreset(name, text);
    return true;
}

bool OrvGui::editSequencePreset(const std::string& name, const std::string& text)
{
    return sequencePresets.exists(name) && sequencePresets.addPreset(name, text);
}

// --- screens and help

void OrvGui::showScreen(Screen screen, bool on)
{
    desk->main->showScreen(screen, on);
    if (screen == Screen::system) desk->parent.systemPanelShown(on);
}

void OrvGui::toggleScreen(Screen screen)
{
    desk->main->toggleScreen(screen);
    if (screen == Screen::system) desk->parent.systemPanelShown(isScreenShowing(screen));
}

bool OrvGui::isScreenShowing(Screen screen) const { return desk && desk->main->isShowing(screen); }

void OrvGui::setFocus() { desk->main->setPlayingFocus(); }

void OrvGui::showProgramMenu() { desk->main->getSystemPanel().showProgramMenu(); }
KeyPresses& OrvGui::getKeyPresses() { return desk->main->getKeyPresses(); }

void OrvGui::showDefaultMidiOutputMenu() { desk->main->getSystemPanel().showDefaultMidiOutputMenu(); }

/// Of some settings the window is not told, so it asks.
void OrvGui::showSetupDialog()
{
    if (!desk) return;
    if (desk->setup && desk->setup->isVisible()) return desk->setup->activateWindow();
    desk->setup = new Setup::SetupDialog(*this, *desk->main);
    desk->setup->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(desk->setup, &QDialog::finished, desk->main.get(), [this] { setFocus(); });
    desk->setup->open();
    getOrvMessageManager().postRefreshGui();
}

Output::MusicKeyboardCtl& OrvGui::getMainMusicKeyboardCtl()
{
    return desk->main->getOutputPanel().getMusicKeyboardCtl();
}

void OrvGui::clearMusicKeyboardHilight() { desk->main->getOutputPanel().clearHilight(); }

void OrvGui::clearComputerKeyboardHilight() { desk->main->getComputerInputPanel().getKeyboard().clearHilight(); }

void OrvGui::displayHelp(const QWidget& control)
{
    displayHelp(control.property(Property::HELP).toString().toStdString());
}

/// Where there is nothing to say the last text stays.
void OrvGui::displayHelp(const std::string& text)
{
    if (desk && desk->main && !text.empty()) desk->main->getHelpPanel().showText(text);
}

void OrvGui::displayHelp(int helpId) { displayHelp(helpText(helpId)); }

// --- the place on the screen

void OrvGui::moveWindow(const WindowMove& move)
{
    const QSize all = desk->main->screen()->virtualSize();
    desk->parent.moveWindow(move.x.inPixels(all.width()), move.y.inPixels(all.height()));
}

void OrvGui::setDockToBottomEdge(bool on) { getOrvMessageManager().postSetDockToBottomEdge(on); }

WindowsLib::Rect OrvGui::getMainWindowPosition() const
{
    if (!desk) return shown.settings.getLastWindowPosition();
    const QRect frame = desk->main->window()->frameGeometry();
    return {frame.left(), frame.top(), frame.left() + frame.width(), frame.top() + frame.height()};
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
