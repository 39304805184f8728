#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "api/GuiContext.h"
#include "backend/model/MidiPort.h"
#include "backend/model/Screen.h"
#include "backend/values/OrvMidiMessage.h"
#include "platform/Export.h"
#include "platform/Rect.h"

class QWidget;
class WindowHandle;

namespace Backend
{
namespace ComputerInput
{
class KeyConfigurationMap;
}
class OrvIF;
class OrvMessageManager;
class PresetList;
class RegistrySettings;
class SetList;
enum class Notice;
enum class RecoveryResult;
struct Bank;
struct BankEditDone;
struct EditDone;
struct HostOverrides;
struct Learned;
struct PresetSection;
struct Program;
struct WindowMove;

namespace SequenceManagement
{
class SequencePresetManager;
}
}  // namespace Backend

namespace Gui
{
class EditPoster;
class GuiMessageManagerMaster;
class InputWatch;
enum class KeyTarget;
struct HostStatus;
class KeyPresses;
class Learner;
class ParentWindow;
class Skinner;

namespace Forms
{
class EditableSections;
}
namespace Output
{
class MusicKeyboardCtl;
}
namespace Preset
{
class PresetGuiOwner;
}

/// The window of a backend, as its host and its screens see it. A host calls, on the thread of its QApplication:
///
///     OrvMessageManager::sendCreateOrvGui, then initialize,
///     create and destroy, any number of times: the window opens and closes, and the backend plays on,
///     and to end, before the backend ends: end, delete.
///
/// Everything here belongs to that thread. The window shows its own copy of the data: the backend reports changes, and
/// what the user does is posted to the backend.
class ORV_API OrvGuiIF : public GuiContext
{
public:
    /// Once, before the first `create`.
    virtual void initialize() = 0;
    /// Closes the window if it is open. The last call.
    virtual void end() = 0;

    /// Opens the window in the parent that the host provides, with the screens that it showed when it was closed. False
    /// if there is no QApplication, or the window is open already.
    virtual bool create(ParentWindow& parent) = 0;
    /// Closes the window: keys that are down are released, and the screens and the position are stored. Ignored if it
    /// is closed.
    virtual void destroy() = 0;

    /// The look; only while the window is open.
    virtual Skinner& getSkinner() = 0;

    virtual const Backend::MidiEngine::MidiOutputPorts& getMidiOutputPorts() const = 0;
    virtual const Backend::MidiEngine::MidiInputPorts& getMidiInputPorts() const = 0;
    /// Empty while the window is closed.
    virtual WindowHandle getWindowHandle() const = 0;
    virtual const Backend::RegistrySettings& getRegistrySettings() const = 0;
    /// The output of events without an output of their own; -1 for none.
    virtual int getDefaultMidiOutput() const = 0;
    virtual const Backend::Bank& getCurrentBank() const = 0;
    virtual const Backend::Program& getCurrentProgram() const = 0;
    virtual Backend::OrvMessageManager& getOrvMessageManager() = 0;

    /// Open their dialogs, see `FileCommands.h`, and return at once. Ignored while a dialog is open.
    virtual void showSaveDialog() = 0;
    virtual void showLoadDialog() = 0;
    virtual void importVersion2File() = 0;
    /// Loads a bank, or a program if the path ends in ".prg"; if the file has none, a message box reports it. A preset
    /// (".pst") replaces its section in the program, as a step that can be undone. A path in UTF-8.
    virtual void loadFile(const std::string& path) = 0;

    // Changes that the backend reports
    virtual void handleSettingsChanged(const Backend::RegistrySettings& settings) = 0;
    virtual void handleDockToBottomEdgeChanged(bool on) = 0;
    virtual void handleDefaultBankChanged(const std::string& path) = 0;
    virtual void handleBankChanged(const Backend::Bank& bank) = 0;
    virtual void handleProgramChanged(const Backend::Program& program) = 0;
    /// The file has no program of that number.
    virtual void handleProgramMissing(const Backend::Program& program) = 0;
    virtual void handleProgramNameChanged(const Backend::Program& program) = 0;
    virtual void handleMidiInputPortsChanged(const Backend::MidiEngine::MidiInputPorts& ports) = 0;
    virtual void handleMidiOutputPortsChanged(const Backend::MidiEngine::MidiOutputPorts& ports) = 0;
    virtual void handleDefaultMidiOutputChanged(int output) = 0;
    virtual void handleAlwaysOnTopChanged(bool on) = 0;
    virtual void handleUseSkinBorderChanged(bool on) = 0;

    /// The presets of a section, by its index in `PresetSections::ALL`; `done` is false if the last change of its
    /// folder failed.
    virtual void handlePresetsChanged(std::size_t section, const Backend::PresetList& presets, bool done) = 0;

    // The screens, one below the other; each is shown by itself. A screen inside another one shows that one, too.
    virtual void showScreen(Backend::Screen screen, bool on) = 0;
    virtual void toggleScreen(Backend::Screen screen) = 0;
    virtual bool isScreenShowing(Backend::Screen screen) const = 0;

    /// The presets of a section, and the commands that change them.
    virtual const Backend::PresetList& getPresetList(const Backend::PresetSection& section) const = 0;
    virtual Preset::PresetGuiOwner& getComputerInputPanelAsPresetGuiOwner() = 0;

    /// Requests the host to move the window.
    virtual void moveWindow(const Backend::WindowMove& move) = 0;
    /// An event sent to an output: shown on the output screen.
    virtual void displayMidiOutputEvent(const Backend::MidiEngine::OrvMidiMessage& event) = 0;
    virtual void setDockToBottomEdge(bool on) = 0;
    virtual GuiMessageManagerMaster& getGuiMessageManagerMaster() = 0;

    /// The piano keyboard; layers and zones are aligned with its keys. Only while the window is open.
    virtual Output::MusicKeyboardCtl& getMainMusicKeyboardCtl() = 0;
    /// Draws every key of the pictures as released.
    virtual void clearMusicKeyboardHilight() = 0;
    virtual void clearComputerKeyboardHilight() = 0;

    /// "Default" for -1, "???" for an index outside the list.
    virtual std::string getMidiOutputName(int output) const = 0;
    /// The backend was reset, and no note sounds.
    virtual void handleResetOrv() = 0;
    virtual int getNumberOfPrograms() const = 0;

    /// The names of the sequence presets, sorted. The backend alone writes their files; the window reads the folder at
    /// its start and after each change.
    virtual const std::vector<std::string>& getSequencePresetList() const = 0;
    /// Requests the backend to write a preset, in place of one of that name. False if the name is not valid; if the
    /// file cannot be written, a message box reports it later.
    virtual bool addSequencePreset(const std::string& name, const std::string& text) = 0;
    /// The same for a preset that exists; false also if there is none.
    virtual bool editSequencePreset(const std::string& name, const std::string& text) = 0;
    virtual void deleteSequencePreset(const std::string& name) = 0;
    /// One that has the new name already is replaced.
    virtual void renameSequencePreset(const std::string& name, const std::string& newName) = 0;
    virtual const Backend::SequenceManagement::SequencePresetManager& getSequencePresetManager() const = 0;

    /// Returns the focus to the control that learns an event, or else to playing, unless a text is being edited.
    virtual void setFocus() = 0;

    /// The keys of the computer that are down; only while the window is open.
    virtual KeyPresses& getKeyPresses() = 0;
    /// One line that says why the global keyboard does not work, or only in part; empty if it does.
    virtual std::string getGlobalKeyboardReason() const = 0;

    /// Pop-up menus at the system panel.
    virtual void showProgramMenu() = 0;
    virtual void showDefaultMidiOutputMenu() = 0;
    /// Opens the setup dialog, or brings it to the front, and returns at once.
    virtual void showSetupDialog() = 0;

    virtual void handleRetroRecordBufferSizeChanged(int bytes) = 0;
    virtual void handleRetroRecordEnabledChanged(bool on) = 0;
    virtual void handleMidiThruChanged(bool on) = 0;
    virtual void handleGlobalKeyboardChanged(bool on) = 0;
    /// The global keyboard was switched on or off by a key of its own, in any window.
    virtual void handleGlobalKeySwitched(bool on) = 0;
    /// The bindings of the computer's keys have changed.
    virtual void handleKeysChanged(const Backend::ComputerInput::KeyConfigurationMap& keys) = 0;
    virtual void handleMouseSensitivityChanged(int divisor) = 0;
    virtual void handleLargeDisplayFontChanged(bool on) = 0;
    virtual void handleClickZoneChannelTransposeChanged(bool on) = 0;

    virtual Backend::OrvIF& getOrvIF() = 0;
    /// Without folder and extension.
    virtual std::string getCurrentBankName() const = 0;

    /// The text of the control's `Property::HELP`.
    virtual void displayHelp(const QWidget& control) = 0;
    virtual void displayHelp(const std::string& text) = 0;
    /// The text with that number, see `HelpTexts.h`; an unknown number is ignored.
    virtual void displayHelp(int helpId) = 0;

    /// The position of the window with its frame on the desktop.
    virtual WindowsLib::Rect getMainWindowPosition() const = 0;
    virtual bool isVstPlugin() const = 0;

    /// What was done, for three seconds in the status line.
    virtual void displayMessage(const std::string& text) = 0;
    /// The state of the host, for the status line.
    virtual void showHostStatus(const HostStatus& status) = 0;
    /// Where the keys of the computer go has changed.
    virtual void handleKeyTarget(KeyTarget target) = 0;

    /// The scale that the user wants, 75 to 400 percent; it is stored.
    virtual void setScale(int percent) = 0;
    /// The height that the user has given the window, in logical pixels, 0 for its natural one; it is stored.
    virtual void setHeight(int height) = 0;
    /// The room for the window has changed: asks the host for the scale again.
    virtual void refit() = 0;
    /// The small window with three buttons alone, or the screens that it replaced.
    virtual void setCompact(bool on) = 0;
    virtual bool isCompact() const = 0;

    /// The backend wrote, renamed or removed a sequence; `done` is false if the file could not be changed.
    virtual void handleSequencePresetsChanged(bool done) = 0;

    /// Posts the edits of the window; only while it is open.
    virtual EditPoster& getEdits() = 0;
    /// Where a screen adds its section, for the window keys; only while the window is open.
    virtual Forms::EditableSections& getEditableSections() = 0;
    virtual void handleEditDone(const Backend::EditDone& done) = 0;
    virtual void handleBankEditDone(const Backend::BankEditDone& done) = 0;
    /// Whether the current program differs from what is saved, and how many others do.
    virtual void handleProgramEdited(bool isEdited, int others) = 0;
    /// What became of the file of a process that ended without saving; see `OrvIF::keepRecovery`.
    virtual void handleRecovery(Backend::RecoveryResult result, const std::string& path) = 0;
    enum class Loss { ofProgram, ofAll };
    /// Before edits of the current program, or of all programs, are lost: calls `goOn` at once if there are none, or if
    /// the user does not want to be asked; otherwise after a yes.
    virtual void askBeforeLoss(Loss loss, std::function<void()> goOn) = 0;

    /// The preset that a section, by its index in `PresetSections::ALL`, was loaded from or saved as, empty for none,
    /// and whether the section was edited since.
    virtual void handleSectionPreset(std::size_t section, bool isEdited, const std::string& name) = 0;
    /// What learns events for controls of the window, and what shows those that MIDI inputs receive; only while it is
    /// open.
    virtual Learner& getLearner() = 0;
    virtual void handleLearned(const Backend::Learned& learned) = 0;
    virtual InputWatch& getInputWatch() = 0;
    virtual void handleReceivedEvents(const std::vector<Backend::MidiEngine::OrvMidiMessage>& events) = 0;

    virtual void handleSetListChanged(const Backend::SetList& list) = 0;
    /// Shown in the status line.
    virtual void handleNotice(Backend::Notice notice, const std::string& text) = 0;
    /// The step of its sequence that each layer plays, -1 for none.
    virtual void handleSequenceSteps(const std::vector<int>& steps) = 0;
    /// The dialog in which the programs of the bank are arranged, unless another one is open.
    virtual void showProgramsDialog() = 0;
    /// What the host's command line replaces of the settings that it executes; null if the host executes none of them.
    virtual const Backend::HostOverrides* getHostOverrides() const = 0;
};
}  // namespace Gui
