#pragma once

#include <array>
#include <memory>
#include <type_traits>

#include "api/OrvFactory.h"
#include "api/OrvGuiIF.h"
#include "backend/files/GuiStart.h"
#include "backend/files/SequencePresetManager.h"
#include "backend/model/PresetList.h"
#include "backend/model/PresetSections.h"
#include "gui/framework/GuiMessageManagerMaster.h"
#include "gui/keyboard/GlobalKeyboard.h"
#include "platform/Export.h"

namespace Gui
{
struct OpenWindow;

/// The window, open or closed. It has a copy of what the backend reported, also while it is closed; all Qt objects are
/// made in `create` and destroyed in `destroy`. The GUI thread.
class ORV_API OrvGui final : public OrvGuiIF
{
public:
    OrvGui(Backend::OrvIF& backend, Backend::GuiStart start);
    ~OrvGui() override;

    void initialize() override;
    void end() override;
    bool create(ParentWindow& parentWindow) override;
    void destroy() override;

    GdiManager& getGdiManager() override;
    Skinner& getSkinner() override;
    int getMouseSensitivity() const override;

    const Backend::MidiEngine::MidiOutputPorts& getMidiOutputPorts() const override { return shown.outputs; }
    const Backend::MidiEngine::MidiInputPorts& getMidiInputPorts() const override { return shown.inputs; }
    WindowHandle getWindowHandle() const override;
    const Backend::RegistrySettings& getRegistrySettings() const override { return shown.settings; }
    int getDefaultMidiOutput() const override { return shown.settings.getDefaultMidiOutput(); }
    const Backend::Bank& getCurrentBank() const override { return shown.bank; }
    const Backend::Program& getCurrentProgram() const override { return shown.program; }
    Backend::OrvMessageManager& getOrvMessageManager() override;
    void showSaveDialog() override;
    void showLoadDialog() override;
    void importVersion2File() override;
    void loadFile(const std::string& path) override;

    void handleSettingsChanged(const Backend::RegistrySettings& settings) override;
    void handleDockToBottomEdgeChanged(bool on) override;
    void handleDefaultBankChanged(const std::string& path) override;
    void handleBankChanged(const Backend::Bank& bank) override;
    void handleProgramChanged(const Backend::Program& program) override;
    void handleProgramMissing(const Backend::Program& program) override;
    void handleProgramNameChanged(const Backend::Program& program) override;
    void handleMidiInputPortsChanged(const Backend::MidiEngine::MidiInputPorts& ports) override;
    void handleMidiOutputPortsChanged(const Backend::MidiEngine::MidiOutputPorts& ports) override;
    void handleDefaultMidiOutputChanged(int output) override;
    void handleAlwaysOnTopChanged(bool on) override;
    void handleUseSkinBorderChanged(bool on) override;
    void handlePresetsChanged(std::size_t section, const Backend::PresetList& presets, bool done) override;

    void showScreen(Backend::Screen screen, bool on) override;
    void toggleScreen(Backend::Screen screen) override;
    bool isScreenShowing(Backend::Screen screen) const override;

    const Backend::PresetList& getPresetList(const Backend::PresetSection& section) const override;
    Preset::PresetGuiOwner& getComputerInputPanelAsPresetGuiOwner() override;

    void moveWindow(const Backend::WindowMove& move) override;
    void displayMidiOutputEvent(const Backend::MidiEngine::OrvMidiMessage& event) override;
    void setDockToBottomEdge(bool on) override;
    GuiMessageManagerMaster& getGuiMessageManagerMaster() override { return messageManagers; }
    Output::MusicKeyboardCtl& getMainMusicKeyboardCtl() override;
    void clearMusicKeyboardHilight() override;
    void clearComputerKeyboardHilight() override;
    std::string getMidiOutputName(int output) const override;
    void handleResetOrv() override;
    int getNumberOfPrograms() const override;
    const std::vector<std::string>& getSequencePresetList() const override { return sequencePresets.getList(); }
    bool addSequencePreset(const std::string& name, const std::string& text) override;
    bool editSequencePreset(const std::string& name, const std::string& text) override;
    void deleteSequencePreset(const std::string& name) override;
    void renameSequencePreset(const std::string& name, const std::string& newName) override;
    const Backend::SequenceManagement::SequencePresetManager& getSequencePresetManager() const override
    {
        return sequencePresets;
    }
    void setFocus() override;
    KeyPresses& getKeyPresses() override;
    std::string getGlobalKeyboardReason() const override { return globalKeyboard.getReason(); }
    void showProgramMenu() override;
    void showDefaultMidiOutputMenu() override;
    void showSetupDialog() override;
    void handleRetroRecordBufferSizeChanged(int bytes) override;
    void handleRetroRecordEnabledChanged(bool on) override;
    void handleMidiThruChanged(bool on) override;
    void handleGlobalKeyboardChanged(bool on) override;
    void handleGlobalKeySwitched(bool on) override;
    void handleKeysChanged(const Backend::ComputerInput::KeyConfigurationMap& keys) override;
    void handleMouseSensitivityChanged(int divisor) override;
    void handleLargeDisplayFontChanged(bool on) override;
    void handleClickZoneChannelTransposeChanged(bool on) override;
    Backend::OrvIF& getOrvIF() override { return orv; }
    std::string getCurrentBankName() const override;
    void displayHelp(const QWidget& control) override;
    void displayHelp(const std::string& text) override;
    void displayHelp(int helpId) override;
    WindowsLib::Rect getMainWindowPosition() const override;
    bool isVstPlugin() const override { return shown.isVstPlugin; }
    void handleSequencePresetsChanged(bool done) override;
    void displayMessage(const std::string& text) override;
    void showHostStatus(const HostStatus& status) override;
    void handleKeyTarget(KeyTarget target) override;
    void setScale(int percent) override;
    void setHeight(int height) override;
    void refit() override;
    void setCompact(bool on) override;
    bool isCompact() const override;
    EditPoster& getEdits() override;
    Forms::EditableSections& getEditableSections() override;
    void handleEditDone(const Backend::EditDone& done) override;
    void handleBankEditDone(const Backend::BankEditDone& done) override;
    void handleProgramEdited(bool isEdited, int others) override;
    void handleRecovery(Backend::RecoveryResult result, const std::string& path) override;
    void handleSectionPreset(std::size_t section, bool edited, const std::string& name) override;
    void askBeforeLoss(Loss loss, std::function<void()> goOn) override;
    Learner& getLearner() override;
    void handleLearned(const Backend::Learned& learned) override;
    InputWatch& getInputWatch() override;
    void handleReceivedEvents(const std::vector<Backend::MidiEngine::OrvMidiMessage>& events) override;
    void handleSetListChanged(const Backend::SetList& list) override;
    void handleNotice(Backend::Notice notice, const std::string& text) override;
    void handleSequenceSteps(const std::vector<int>& steps) override;
    void showProgramsDialog() override;
    const Backend::HostOverrides* getHostOverrides() const override
    {
        return shown.hostOverrides ? &*shown.hostOverrides : nullptr;
    }

private:
    template <class Value>
    void keep(void (Backend::RegistrySettings::*set)(Value), const std::type_identity_t<Value>& value);
    void showGlobalKeyboard(bool on);
    void showPresetResult(const char* folder, bool done) const;
    void loadPresetFile(const std::string& path);

    Backend::OrvIF& orv;
    Backend::GuiStart shown;
    GuiMessageManagerMaster messageManagers;
    GlobalKeyboard globalKeyboard;
    std::array<Backend::PresetList, Backend::PresetSections::ALL.size()> presetLists;
    Backend::SequenceManagement::SequencePresetManager sequencePresets;
    bool isEdited = false;             // the current program
    int otherEdited = 0;               // programs
    std::string loading;               // the file that the user chose, until its program is shown
    std::unique_ptr<OpenWindow> open;  // null while the window is closed
};
}  // namespace Gui
