#pragma once

#include <array>
#include <cassert>
#include <filesystem>
#include <functional>
#include <iosfwd>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "api/Bank.h"
#include "api/OrvFactory.h"
#include "api/OrvIF.h"
#include "api/OrvMessageManager.h"
#include "backend/core/BankHistory.h"
#include "backend/core/Drafts.h"
#include "backend/core/EngineLog.h"
#include "backend/core/EngineRecorder.h"
#include "backend/core/ProgramChanges.h"
#include "backend/core/ProgramValues.h"
#include "backend/core/SettingCommands.h"
#include "backend/core/StepHistory.h"
#include "backend/core/TapTempo.h"
#include "backend/display/Display.h"
#include "backend/engine/MidiEngine.h"
#include "backend/files/BankFile.h"
#include "backend/files/FileWork.h"
#include "backend/files/GuiStart.h"
#include "backend/files/RecoveryFile.h"
#include "backend/files/RegistrySettings.h"
#include "backend/files/SequencePresetManager.h"
#include "backend/files/SetListFile.h"
#include "backend/messages/BackendThread.h"
#include "backend/messages/GuiMessages.h"
#include "backend/messages/MessageManagerMaster.h"
#include "backend/model/Edit.h"
#include "backend/model/Program.h"
#include "backend/model/Screen.h"
#include "backend/model/ScreenState.h"
#include "backend/recorder/RetroRecordManager.h"
#include "backend/sections/Learning.h"
#include "backend/sections/computerinput/ComputerInputManager.h"
#include "backend/sections/controls/ControlManager.h"
#include "backend/sections/joystick/JoystickManager.h"
#include "backend/sections/layers/LayerManager.h"
#include "backend/sections/midiinput/MidiInputManager.h"
#include "backend/sections/oscillators/OscManager.h"
#include "backend/sections/zones/ZoneManager.h"
#include "platform/Mutex.h"

namespace Backend
{
namespace Version2
{
struct Preset;
}

/// The backend: has all its parts as members, in the order of their construction. Its thread is the only one that
/// changes their data; the engine, the display and the window have copies.
class Orv final : public OrvIF
{
public:
    Orv(const std::string& application, MidiEngine::MidiPlayer& player, RetroRecord::Restore restoreRecord);
    ~Orv() override;

    void initialize() override;
    void endInitialize() override;
    void end() override;
    void start() override
    {
        files.start();
        messageManagerMaster.start();
    }
    void stop() override
    {
        stopJoysticks();
        messageManagerMaster.stop();
        files.stop();
    }

    WindowHandle getGuiWindowHandle() const override;
    void setGuiWindowHandle(const WindowHandle& window) override;
    OrvMessageManager& getOrvMessageManager() override { return orvMessageManager; }
    MidiEngine::MidiEngineMessageManager& getMidiEngineMessageManager() override
    {
        return midiEngine.getMessageManager();
    }
    Controls::ControlMessageManager& getControlMessageManager() override { return controlManager.getMessageManager(); }
    void setLastWindowPosition(const WindowsLib::Rect& position) override
    {
        changeSetting<Settings::LAST_WINDOW_POSITION>(*this, position);
    }
    void removeGuiWindowHandle() override { setGuiWindowHandle({}); }

    void setDockToBottomEdge(bool on) override { changeSetting<Settings::DOCK_TO_BOTTOM_EDGE>(*this, on); }
    void setDefaultBank(const std::string& path) override;
    void setMouseSensitivity(int divisor) override { changeSetting<Settings::MOUSE_SENSITIVITY>(*this, divisor); }
    void setMidiInputPorts(const MidiEngine::MidiInputPorts& ports) override;
    void setMidiOutputPorts(const MidiEngine::MidiOutputPorts& ports) override;
    MidiEngine::MidiInputPorts getMidiInputPorts() const override { return onBackendThread(midiInputPorts); }
    MidiEngine::MidiOutputPorts getMidiOutputPorts() const override { return onBackendThread(midiOutputPorts); }
    void enableMidiInput(int port, bool enabled) override;
    void enableMidiOutput(int port, bool enabled) override;
    void processMidiInputEvent(const MidiEngine::OrvMidiMessage& event) override;
    void loadProgram(const std::string& path) override;
    void changeProgram(int number) override;
    void loadProgramFromString(const std::string& text, int number) override;
    void loadBank(const std::string& path) override;
    void importVersion2Bank(const std::string& source, const std::string& target, const WindowHandle& window) override;
    void importVersion2Program(const std::string& source, const std::string& target,
                               const WindowHandle& window) override;
    void importVersion2Preset(const std::string& source, const std::string& name, const WindowHandle& window) override;
    void saveToCurrentBank(int number, const WindowHandle& window) override;
    void saveToBank(const std::string& path, const WindowHandle& window) override;
    void saveToProgram(const std::string& path, const WindowHandle& window) override;
    std::string getProgramAsString() override;
    void setAlwaysOnTop(bool on) override { changeSetting<Settings::ALWAYS_ON_TOP>(*this, on); }
    void setUseSkinBorder(bool on) override { changeSetting<Settings::USE_SKIN_BORDER>(*this, on); }
    void setDisplayHeight(int pixels) override { changeSetting<Settings::DISPLAY_HEIGHT>(*this, pixels); }
    void setDisplayNumbers(bool on) override;
    void setDisplayTimes(bool on) override;
    void setLargeDisplayFont(bool on) override { changeSetting<Settings::LARGE_DISPLAY_FONT>(*this, on); }
    void showSystemPanel(bool on) override { showScreen(Screen::system, onOrOff(on)); }
    void toggleSystemPanel() override { showScreen(Screen::system, OnOffToggle::State::toggle); }
    void showDisplay(bool on) override { showScreen(Screen::display, onOrOff(on)); }
    void toggleDisplay() override { showScreen(Screen::display, OnOffToggle::State::toggle); }
    void showHelp(bool on) override { showScreen(Screen::help, onOrOff(on)); }
    void toggleHelp() override { showScreen(Screen::help, OnOffToggle::State::toggle); }
    void showOutput(bool on) override { showScreen(Screen::output, onOrOff(on)); }
    void toggleOutput() override { showScreen(Screen::output, OnOffToggle::State::toggle); }
    void showCc(bool on) override { showScreen(Screen::cc, onOrOff(on)); }
    void toggleCc() override { showScreen(Screen::cc, OnOffToggle::State::toggle); }
    void showLayer(bool on) override { showScreen(Screen::layers, onOrOff(on)); }
    void toggleLayer() override { showScreen(Screen::layers, OnOffToggle::State::toggle); }
    void showZone(bool on) override { showScreen(Screen::zones, onOrOff(on)); }
    void toggleZone() override { showScreen(Screen::zones, OnOffToggle::State::toggle); }
    void showOsc(bool on) override { showScreen(Screen::oscillators, onOrOff(on)); }
    void toggleOsc() override { showScreen(Screen::oscillators, OnOffToggle::State::toggle); }
    Joystick::JoystickManager& getJoystickManager() override { return onBackendThread(joystickManager); }
    Joystick::JoystickMessageManager& getJoystickMessageManager() override
    {
        return joystickManager.getMessageManager();
    }
    void showJoystick(bool on) override { showScreen(Screen::joystick, onOrOff(on)); }
    void toggleJoystick() override { showScreen(Screen::joystick, OnOffToggle::State::toggle); }
    Joystick::JoystickConfiguration getJoystickConfiguration() const override
    {
        return onBackendThread(joystickManager.getConfiguration());
    }
    ComputerInput::ComputerInputManager& getComputerInputManager() override
    {
        return onBackendThread(computerInputManager);
    }
    ComputerInput::ComputerInputMessageManager& getComputerInputMessageManager() override
    {
        return computerInputManager.getMessageManager();
    }
    void showComputerInput(bool on) override { showScreen(Screen::computerInput, onOrOff(on)); }
    void toggleComputerInput() override { showScreen(Screen::computerInput, OnOffToggle::State::toggle); }
    void keyDown(const Key& key, bool isRepeat) override
    {
        getComputerInputMessageManager().postKeyDown(key, isRepeat);
    }
    void keyUp(const Key& key) override { getComputerInputMessageManager().postKeyUp(key); }
    void mergeKeyConfigurations(const std::vector<ComputerInput::KeyConfiguration>& configurations,
                                bool notifyGui) override
    {
        computerInputManager.mergeKeyConfigurations(configurations, notifyGui);
    }
    ComputerInput::KeyConfigurationMap getComputerInputConfiguration() const override
    {
        return onBackendThread(computerInputManager.getKeys());
    }
    MidiInput::MidiInputManager& getMidiInputManager() override { return onBackendThread(midiInputManager); }
    MidiInput::MidiInputMessageManager& getMidiInputMessageManager() override
    {
        return midiInputManager.getMessageManager();
    }
    void showMidiInput(bool on) override { showScreen(Screen::midiInput, onOrOff(on)); }
    void toggleMidiInput() override { showScreen(Screen::midiInput, OnOffToggle::State::toggle); }
    MidiInput::MidiEventConfigurationMap getMidiInputConfiguration() const override
    {
        return onBackendThread(midiInputManager.getConfiguration());
    }
    Controls::ControlManager& getControlManager() override { return onBackendThread(controlManager); }
    void showControl(bool on) override { showScreen(Screen::controls, onOrOff(on)); }
    void toggleControl() override { showScreen(Screen::controls, OnOffToggle::State::toggle); }
    void showSaveDialog() override { notifyGui(GuiMessage::SHOW_SAVE_DIALOG); }
    Oscillators::OscManager& getOscManager() override { return onBackendThread(oscManager); }
    Oscillators::OscMessageManager& getOscMessageManager() override { return oscManager.getMessageManager(); }
    void setDisplayMidiInputEvents(bool on) override;
    void setDisplayMidiOutputEvents(bool on) override;
    void playMidi(const MidiEngine::OrvMidiMessage& event) override;
    void displayMidiInputEvent(const MidiEngine::OrvMidiMessage& event) override;
    Layers::LayerManager& getLayerManager() override { return onBackendThread(layerManager); }
    Layers::LayerMessageManager& getLayerMessageManager() override { return layerManager.getMessageManager(); }
    Zones::ZoneManager& getZoneManager() override { return onBackendThread(zoneManager); }
    Zones::ZoneMessageManager& getZoneMessageManager() override { return zoneManager.getMessageManager(); }
    Display::DisplayMessageManager& getDisplayMessageManager() override { return display.getMessageManager(); }
    Bank& getBank() override { return onBackendThread(bank); }
    Program& getProgram() override { return onBackendThread(program); }
    bool tryRest() override { return midiEngine.tryRest(); }
    void playTimeSlice(std::int32_t startPpq, std::int32_t endPpq) override
    {
        midiEngine.playTimeSlice(startPpq, endPpq);
    }
    RegistrySettings& getRegistrySettings() override { return onBackendThread(registrySettings); }
    MessageManagerMaster& getMessageManagerMaster() override { return messageManagerMaster; }

    int getTempo() const override { return onBackendThread(program.tempo); }
    int getTempoSource() const override { return onBackendThread(program.tempoSource); }
    void changeTempo(const RelativeFixedValue& value, bool notify) override;
    void setTempoSource(int source, bool notify) override;
    void tapTempo() override;
    void updateZones() override;
    void resetOrv() override;
    void changeBankSize(int size, const WindowHandle& window) override;
    void changeProgramName(const std::string& name) override;
    SequenceManagement::SequencePresetManager& getSequencePresetManager() override
    {
        return onBackendThread(sequencePresets);
    }
    void addSequencePreset(const std::string& name, const std::string& text) override;
    void selectControl(const SelectControlType& select) override { controlManager.selectControl(select); }
    void changeControl(const SelectControlType& select, const RelativeFixedValue& value) override
    {
        controlManager.changeControl(select, value);
    }
    void sendControlData(const SelectControlType& select) override { controlManager.sendControlData(select); }
    void changeProgram(const SelectType& select) override;
    void changeDefaultMidiOutput(const SelectType& select) override;
    void showProgramMenu() override { notifyGui(GuiMessage::SHOW_PROGRAM_MENU); }
    void changeZoneTranspose(const SelectType& select, const RelativeFixedValue& value) override
    {
        zoneManager.changeTranspose(select, value);
    }
    void selectZone(const SelectType& select) override { zoneManager.selectZone(select); }
    void showDefaultMidiOutputMenu() override { notifyGui(GuiMessage::SHOW_DEFAULT_MIDI_OUTPUT_MENU); }
    void setScreenState(const ScreenState& state) override
    {
        assertBackendThread();
        registrySettings.setScreens(state.toBits());
        setRecoveryChanged();
    }
    ScreenState getScreenState() const override
    {
        return ScreenState::fromBits(onBackendThread(registrySettings).getScreens());
    }
    RetroRecord::RetroRecordManager& getRetroRecordManager() override { return retroRecord; }
    void setRetroRecordBufferSize(int bytes) override;
    void enableRetroRecord(bool on) override;
    void setKeepNotes(bool on) override;
    void changeMidiThru(const OnOffToggle& value, bool notify) override;
    void changeGlobalKeyboard(const OnOffToggle& value, bool notify) override;
    void selectLayer(const SelectType& select) override { layerManager.dataSelect(select); }
    void editLayer(const SelectType& select) override { layerManager.editSelect(select); }
    void changeLayerTranspose(const SelectType& select, const RelativeFixedValue& value) override
    {
        layerManager.changeTranspose(select, value);
    }
    void changeLayerVelocity(const SelectType& select, const RelativeFixedValue& value) override
    {
        layerManager.changeVelocity(select, value);
    }
    void changeLayerMute(const SelectType& select, const OnOffToggle& value) override
    {
        layerManager.changeMute(select, value);
    }
    void changeLayerMono(const SelectType& select, const OnOffToggle& value) override
    {
        layerManager.changeMono(select, value);
    }
    void changeLayerSolo(const SelectType& select, const OnOffToggle& value) override
    {
        layerManager.changeSolo(select, value);
    }
    void changeLayerNoteToggle(const SelectType& select, const NoteToggle& value) override
    {
        layerManager.changeNoteToggle(select, value);
    }
    void displayMidiOutputEvent(const MidiEngine::OrvMidiMessage& event) override;
    void setLiteVelocity(int velocity) override { changeSetting<Settings::LITE_VELOCITY>(*this, velocity); }
    void setLiteChannel(int channel) override { changeSetting<Settings::LITE_CHANNEL>(*this, channel); }
    void setLiteStackNotes(bool on) override { changeSetting<Settings::LITE_STACK_NOTES>(*this, on); }
    void setClickZoneChannelTranspose(bool on) override
    {
        changeSetting<Settings::CLICK_ZONE_CHANNEL_TRANSPOSE>(*this, on);
    }
    bool isAtRest() const override;
    bool isResetWaiting() const override { return midiEngine.isResetWaiting(); }
    void setWidgetFocus(const SelectControlType& select) override;
    void setRandomSeed(std::uint32_t seed) override { midiEngine.setRandomSeed(seed); }
    void executeFunction(const std::string& xml) override;
    void moveWindow(const WindowMove& move) override;
    void startJoysticks() override { joystickManager.getEngine().start(); }
    void stopJoysticks() override { joystickManager.getEngine().stop(); }
    Gui::OrvGuiIF* createOrvGui(bool isVstPlugin) override;
    void refreshGui() override;
    HostState saveState() override;
    void deleteSequencePreset(const std::string& name) override;
    void saveRetroRecord(const std::string& stem) override;
    void loadPreset(const PresetSection& section, const std::string& name) override;
    void selectOsc(const SelectType& select) override { oscManager.dataSelect(select); }
    void changeOscPlaying(const SelectType& select, const OnOffToggle& value) override
    {
        oscManager.changePlaying(select, value);
    }
    void changeOscSpeed(const SelectType& select, const RelativeFixedValue& value) override
    {
        oscManager.changeSpeed(select, value);
    }
    void setOscSpeedFromMidi(const SelectType& select, std::int32_t value) override
    {
        oscManager.setSpeedFromMidi(select, value);
    }
    void saveRetroRecordFor(const std::string& stem, RetroRecord::SaveListener listener) override
    {
        retroRecord.save(stem, std::move(listener));
    }
    void releaseMidiInput(int port) override;
    void midiInputEventLost(int port) override { settleMidiInput(port); }
    std::int64_t takeLongestHold() override { return midiEngine.takeLongestHold(); }
    void deferMidiInputEvent(int input) override { midiEngine.deferMidiInputEvent(input); }
    bool playMidiInputEvent(const MidiEngine::OrvMidiMessage& event) override
    {
        return midiEngine.playMidiInputEvent(event);
    }
    void setDisplayListener(Display::DisplayListener* listener) override;
    void updateDisplayListener() override { display.getMessageManager().postUpdateListener(); }
    void resendDisplayText() override { display.getMessageManager().postResendText(); }
    void requestRealTime() override;
    HostStart getHostStart() const override;
    void setProgramNumber(int number) override
    {
        assertBackendThread();
        program.number = number;
    }
    void makeBank(const std::string& path, NewBank content, const WindowHandle& window) override;
    void continueLast(bool loadsIt) override;
    void edit(const Edit& edit) override;
    void undo(std::uint32_t gesture) override;
    void redo(std::uint32_t gesture) override;
    void keepDrafts(bool on) override;
    void discardEdits() override;
    void keepRecovery(const RecoveryPlan& plan) override;
    void discardRecovered() override;
    void editBank(const BankEdit& edit) override;
    void undoBank(const std::string& path) override;
    void redoBank(const std::string& path) override;
    void learn(const LearnKinds& kinds, std::uint32_t number) override;
    Learning& getLearning() override { return onBackendThread(learning); }
    void watchMidiInputs(bool on) override;
    void watchNotes(bool on) override;
    bool takeNoteActivity(MidiEngine::NoteActivity& activity) override { return midiEngine.takeNoteActivity(activity); }
    void sendReceivedEvents() override { display.getMessageManager().postSendReceivedEvents(getGuiWindowHandle()); }
    void editSetList(const SetListEdit& edit) override;
    void undoSetList() override;
    void redoSetList() override;
    void enableSetList(bool on) override;
    void goToSetEntry(int id) override;
    void keepSetPosition(bool on) override;
    void setProgramChangeInput(int input) override;
    void setProgramChangeChannel(int channel) override;
    void useHostSettings(HostSettingsUse use) override;
    void passHostSettings() override;
    void renameSequencePreset(const std::string& name, const std::string& newName) override;
    void sendSequenceSteps() override { getMidiEngineMessageManager().postSendSequenceSteps(); }

    /// The factory for `createOrvGui`; null for no window. Before `start`.
    void setGuiFactory(GuiFactory factory) { guiFactory = factory; }

private:
    template <class... Arguments>
    void notifyGui(const TypedMessage<Arguments...>& message, const std::type_identity_t<Arguments>&... arguments) const
    {
        notify(getGuiWindowHandle(), message, arguments...);
    }
    /// That part of the backend, for the backend thread alone.
    template <class Part>
    Part&& onBackendThread(Part&& part) const
    {
        assertBackendThread();
        return std::forward<Part>(part);
    }
    void assertBackendThread() const { assert(BackendThread::isCurrent(messageManagerMaster)); }
    static constexpr OnOffToggle::State onOrOff(bool on)
    {
        return on ? OnOffToggle::State::on : OnOffToggle::State::off;
    }
    void showScreen(Screen screen, OnOffToggle::State state) const;
    void handleCommand(Message& message);
    void startDisplay();
    void startRetroRecord();
    void updateEventLog() REQUIRES(guiWindowLock);
    void prepareBanks();

    Records* findRecords(std::string_view section);
    enum class Preset { none, loaded };
    RecordChanges execute(const Edit& edit, Preset& preset);
    RecordChanges executeRecords(Records& records, const Edit& edit) const;
    RecordChanges executePreset(const Edit& edit, Preset& preset);
    void apply(const RecordChanges& changes);
    void publishProgramValues();
    void acknowledge(const EditDone& done);
    struct Edited {
        bool isCurrent = false;
        int others = 0;  // other programs

        bool operator==(const Edited&) const = default;
    };
    Edited getEdited() const;
    enum class Repeat { no, yes };  // of what the window was sent already
    void updateEdited();
    void updateSectionPresets(Repeat repeat = Repeat::no);
    void leaveProgram();
    void setRecoveryChanged();
    void writeRecovery();
    RecoveryState getUnsaved();
    std::unique_ptr<RecoveryFile> restoreFrom(const std::filesystem::path& directory, const RecoveryPlan& plan);
    bool restoreFile(const RecoveryFile& file, const RecoveryPlan& plan);
    bool restore(const RecoveryState& state);
    void reportRecovery(RecoveryResult result, const std::filesystem::path& path);
    void enterProgram(const XmlElement& stored, int number);

    struct SetListStep {
        std::string name;
        SetList list;  // with the entries before it or, if it was undone, after it
    };
    using SetListHistory = StepHistory<SetListStep>;

    void openSetList();
    void updateSetList();
    void rearrangeSetList(const Arrangement& order);
    static std::vector<int> numbersOf(const Arrangement& order);
    void renameInSetList(int number, const std::string& name);
    void writeSetList();
    void setListWritten(SetListWrite result, const std::string& path);
    void repeatSetListStep(SetListHistory::Way way);
    void setListChanged(BankEditDone::Kind kind, const std::string& name);
    void acknowledgeSetList(BankEditDone::Kind kind, const std::string& name) const;
    void stepInSetList(SelectType::Kind kind);
    void followInSetList();
    void setPositionChanged();
    void updateProgramChangeInput();
    bool takeProgramChange(const MidiEngine::OrvMidiMessage& event);

    std::optional<XmlElement> findProgram(const std::string& path, int number);
    static bool openProgramFile(BankFile& file, const std::string& path);
    bool openBank(const std::string& path);
    struct BankWork;
    BankWork takeBankFile(const std::string& path);
    std::map<int, std::string> findEditedTexts(const BankEdit& edit);
    void addBankStep(BankWork& work, const std::string& name);
    void repeatBankStep(const std::string& path, BankHistory::Way way);
    std::vector<std::pair<int, Draft>> followArrangement(const Arrangement& order);
    void acknowledgeBank(const BankEditDone& done) const;
    void followCopy(const std::string& path, BankFile file);
    void enterNewBank(const std::string& path, BankFile file);
    void loadFirstBank();
    void takeBank(const std::string& path);
    void showBank();
    bool loadFromBank(int number);
    void refuseLoad() const;
    void replaceProgram(const XmlElement& element, int number);
    enum class IsThere { no, yes };
    void notifyProgram(IsThere isThere) const;
    void readProgram(const XmlElement& element);
    std::string writeProgram();
    std::string writeProgramFile(const char* root);
    void writeFile(std::function<bool()> write, const WindowHandle& window);
    bool savePreset(const std::string& source, const Version2::Preset& preset, const std::string& name);
    void reportChange(const WindowHandle& window);
    void saveInto(const std::string& path, int number, const WindowHandle& window);
    ProgramSection& findSection(const PresetSection& section) const;
    void connectPresets(ProgramSection& section);
    void notifyGuiOfPresets(const PresetManager& presets, bool done) const;
    void settleMidiInput(int input);
    void translate(const MidiEngine::OrvMidiMessage& event);
    bool swallows(const MidiEngine::OrvMidiMessage& event);
    void reportLearned(const Learned& learned);
    void updateRefusal();
    void updateInputLog();
    bool keepsNotes() const { return registrySettings.get<Settings::KEEP_NOTES>(); }
    void publishInputs();
    void releaseHeldNotes(int input);
    void fixDefaultMidiOutput();
    void setDefaultMidiOutput(int output);
    int findOpenOutput(std::int64_t from, int step) const;

    const std::string applicationName;
    mutable Mutex guiWindowLock;
    WindowHandle guiWindowHandle GUARDED_BY(guiWindowLock);
    bool hasDisplayListener GUARDED_BY(guiWindowLock) = false;  // of the host
    GuiFactory guiFactory = nullptr;
    MessageManagerMaster messageManagerMaster;
    FileWork files;  // while it is busy, its work uses `bankFile`
    MessageManager orvCommands;
    OrvMessageManager orvMessageManager;
    RegistrySettings registrySettings;
    Bank bank;
    TapTempo taps;
    BankFile bankFile;       // of the current bank, if there is one
    BankFile otherBankFile;  // of another bank whose programs were changed
    Program program;
    ProgramValues programValues{program, [this] { publishProgramValues(); }};
    EditHistory history;  // of the current program
    Drafts drafts;
    std::map<std::string, BankHistory> bankHistories;  // by path, since it was loaded
    bool keepsDrafts = false;
    std::unique_ptr<RecoveryFile> recovery;       // null while none is kept
    bool isRecoveryRequested = false;             // since it was written last
    std::optional<RecoveryState> beforeRecovery;  // what was loaded before something was restored
    RecoveryResult recoveryResult = RecoveryResult::nothing;
    std::string recoveryPath;                  // that the result is about
    SetList setList;                           // of the current bank
    std::shared_ptr<SetListFile> setListFile;  // null without a bank
    SetListHistory setListHistory;
    int setListWrites = 0;       // that the files thread has not reported yet
    bool setListFailed = false;  // the last one
    bool keepsSetPosition = false;
    ProgramChanges programChanges;
    std::optional<HostSettingsUse> hostSettings;  // none if the host executes no settings
    bool storesLast = false;                      // at the end: the current bank and program
    bool loadsLast = false;                       // at the start
    Edited shownEdited;
    std::array<SectionPreset, PresetSections::ALL.size()> shownPresets;
    MidiEngine::MidiInputPorts midiInputPorts;
    MidiEngine::MidiOutputPorts midiOutputPorts;
    bool initializing = false;  // controls send their values at the end of it, when there are ports
    MidiEngine::MidiEngine midiEngine;
    Display::Display display;
    RetroRecord::RetroRecordManager retroRecord;
    EngineRecorder engineRecorder{retroRecord};
    EngineLog engineLog{display.getMessageManager()};
    bool watchesInputs = false;
    Learning learning{{.report = [this](const Learned& learned) { reportLearned(learned); },
                       .playAxis =
                           [this](const Joystick::JoyAxisElementId& id, int value) {
                               joystickManager.setAxis(id, Joystick::AxisMode::raw, value, Joystick::Source::joystick);
                           }}};
    Oscillators::OscManager oscManager;
    Joystick::JoystickManager joystickManager;
    ComputerInput::ComputerInputManager computerInputManager;
    MidiInput::MidiInputManager midiInputManager;
    Controls::ControlManager controlManager;
    Layers::LayerManager layerManager;
    Zones::ZoneManager zoneManager;
    /// In the order in which they are written, and in which those that a program lacks are emptied.
    const std::array<ProgramSection*, 7> sections{&oscManager,       &joystickManager, &computerInputManager,
                                                  &midiInputManager, &controlManager,  &layerManager,
                                                  &zoneManager};
    SequenceManagement::SequencePresetManager sequencePresets;
};
}  // namespace Backend
