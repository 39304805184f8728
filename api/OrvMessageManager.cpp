#include "api/OrvMessageManager.h"

#include <utility>

#include "backend/messages/ControlMessageManager.h"
#include "backend/messages/JoystickMessageManager.h"
#include "backend/messages/MessageManagerMaster.h"
#include "backend/messages/MidiEngineMessageManager.h"
#include "backend/messages/OrvMessages.h"
#include "backend/messages/SettingMessages.h"
#include "backend/model/BankEdit.h"
#include "backend/model/Edit.h"
#include "backend/model/SetList.h"

namespace Backend
{
using MidiEngine::MidiInputPorts;
using MidiEngine::MidiOutputPorts;
using MidiEngine::OrvMidiMessage;

constinit const WindowHandle NO_WINDOW;

void OrvMessageManager::sendInitialize() { master.send(OrvMessage::INITIALIZE()); }

void OrvMessageManager::sendEnd() { master.send(OrvMessage::END()); }

void OrvMessageManager::sendSetMidiInputPorts(const MidiInputPorts& ports)
{
    master.send(OrvMessage::SEND_MIDI_INPUT_PORTS(ports));
}

void OrvMessageManager::postSetMidiInputPorts(const MidiInputPorts& ports)
{
    master.post(OrvMessage::SET_MIDI_INPUT_PORTS(ports));
}

void OrvMessageManager::sendSetMidiOutputPorts(const MidiOutputPorts& ports)
{
    master.send(OrvMessage::SEND_MIDI_OUTPUT_PORTS(ports));
}

void OrvMessageManager::postSetMidiOutputPorts(const MidiOutputPorts& ports)
{
    master.post(OrvMessage::SET_MIDI_OUTPUT_PORTS(ports));
}

void OrvMessageManager::sendEndInitialize() { master.send(OrvMessage::END_INITIALIZE()); }

void OrvMessageManager::postSetProgramNumber(int number) { master.post(OrvMessage::SET_PROGRAM_NUMBER(number)); }

HostStart OrvMessageManager::sendGetHostStart() { return ask(master, OrvMessage::GET_HOST_START); }

void OrvMessageManager::sendReset() { orv.getMidiEngineMessageManager().sendReset(); }

HostState OrvMessageManager::sendSaveState() { return ask(master, OrvMessage::SAVE_STATE); }

Gui::OrvGuiIF* OrvMessageManager::sendCreateOrvGui(bool isVstPlugin)
{
    return ask(master, OrvMessage::CREATE_ORV_GUI, isVstPlugin);
}

void OrvMessageManager::postRefreshGui() { master.post(OrvMessage::REFRESH_GUI()); }

void OrvMessageManager::postRemoveGuiWindowHandle() { master.post(OrvMessage::REMOVE_GUI_WINDOW_HANDLE()); }

void OrvMessageManager::postPlayMidi(const OrvMidiMessage& event) { master.post(OrvMessage::PLAY_MIDI(event)); }

void OrvMessageManager::postEnableMidiInput(int port, bool enabled)
{
    master.post(OrvMessage::ENABLE_MIDI_INPUT(port, enabled));
}

void OrvMessageManager::postEnableMidiOutput(int port, bool enabled)
{
    master.post(OrvMessage::ENABLE_MIDI_OUTPUT(port, enabled));
}

void OrvMessageManager::postReleaseMidiInput(int port) { master.post(OrvMessage::RELEASE_MIDI_INPUT(port)); }

void OrvMessageManager::postProcessMidiInputEvent(const OrvMidiMessage& event)
{
    master.post(OrvMessage::PROCESS_MIDI_INPUT_EVENT(event));
}

void OrvMessageManager::postMidiInputEventLost(int port) { master.post(OrvMessage::MIDI_INPUT_EVENT_LOST(port)); }

void OrvMessageManager::postChangeControl(const Cell& cell, std::int32_t value)
{
    master.post(Controls::ControlMessage::SET_VALUE(cell, value));
}

void OrvMessageManager::postTapTempo() { master.post(OrvMessage::TAP_TEMPO()); }

void OrvMessageManager::postResetOrv() { master.post(OrvMessage::RESET_ORV()); }

void OrvMessageManager::postLoadProgram(const std::string& path) { master.post(OrvMessage::LOAD_PROGRAM(path)); }

void OrvMessageManager::postLoadBank(const std::string& path) { master.post(OrvMessage::LOAD_BANK(path)); }

void OrvMessageManager::postAddSequencePreset(const std::string& name, const std::string& text)
{
    master.post(OrvMessage::ADD_SEQUENCE_PRESET(name, text));
}

void OrvMessageManager::postDeleteSequencePreset(const std::string& name)
{
    master.post(OrvMessage::DELETE_SEQUENCE_PRESET(name));
}

void OrvMessageManager::postRenameSequencePreset(const std::string& name, const std::string& newName)
{
    master.post(OrvMessage::RENAME_SEQUENCE_PRESET(name, newName));
}

void OrvMessageManager::postSaveRetroRecord(const std::string& stem)
{
    master.post(OrvMessage::SAVE_RETRO_RECORD(stem));
}

void OrvMessageManager::postSetDefaultBank(const std::string& path)
{
    master.post(SETTING<Settings::DEFAULT_BANK>(path));
}

void OrvMessageManager::postImportVersion2Bank(const std::string& source, const std::string& target,
                                               const WindowHandle& window)
{
    master.post(OrvMessage::IMPORT_VERSION2_BANK(source, target, window));
}

void OrvMessageManager::postImportVersion2Program(const std::string& source, const std::string& target,
                                                  const WindowHandle& window)
{
    master.post(OrvMessage::IMPORT_VERSION2_PROGRAM(source, target, window));
}

void OrvMessageManager::postImportVersion2Preset(const std::string& source, const std::string& name,
                                                 const WindowHandle& window)
{
    master.post(OrvMessage::IMPORT_VERSION2_PRESET(source, name, window));
}

void OrvMessageManager::postSaveToCurrentBank(int number, const WindowHandle& window)
{
    master.post(OrvMessage::SAVE_TO_CURRENT_BANK(number, window));
}

void OrvMessageManager::postSaveToBank(const std::string& path, const WindowHandle& window)
{
    master.post(OrvMessage::SAVE_TO_BANK(path, window));
}

void OrvMessageManager::postSaveToProgram(const std::string& path, const WindowHandle& window)
{
    master.post(OrvMessage::SAVE_TO_PROGRAM(path, window));
}

void OrvMessageManager::postChangeBankSize(int size, const WindowHandle& window)
{
    master.post(OrvMessage::CHANGE_BANK_SIZE(size, window));
}

void OrvMessageManager::postChangeProgramName(const std::string& name)
{
    master.post(OrvMessage::CHANGE_PROGRAM_NAME(name));
}

std::string OrvMessageManager::sendGetProgramAsString() { return ask(master, OrvMessage::GET_PROGRAM_AS_STRING); }

void OrvMessageManager::postLoadProgramFromString(const std::string& text, int number)
{
    master.post(OrvMessage::LOAD_PROGRAM_FROM_STRING(text, number));
}

void OrvMessageManager::postSetScreenState(const ScreenState& state)
{
    master.post(OrvMessage::SET_SCREEN_STATE(state));
}

void OrvMessageManager::postChangeProgram(const SelectType& select) { master.post(OrvMessage::CHANGE_PROGRAM(select)); }

void OrvMessageManager::postChangeDefaultMidiOutput(const SelectType& select)
{
    master.post(OrvMessage::CHANGE_DEFAULT_MIDI_OUTPUT(select));
}

void OrvMessageManager::postKeyDown(const Key& key, bool isRepeat) { orv.keyDown(key, isRepeat); }

void OrvMessageManager::postKeyUp(const Key& key) { orv.keyUp(key); }

void OrvMessageManager::postExecuteFunction(const std::string& xml) { master.post(OrvMessage::EXECUTE_FUNCTION(xml)); }
void OrvMessageManager::postJoystickAxis(int joystick, int axis, int value)
{
    orv.getJoystickMessageManager().postJoystickAxis({joystick, axis}, value);
}

void OrvMessageManager::postJoystickButtonDown(int joystick, int button, bool isRepeat)
{
    orv.getJoystickMessageManager().postJoystickButtonDown({joystick, button}, isRepeat);
}

void OrvMessageManager::postJoystickButtonUp(int joystick, int button)
{
    orv.getJoystickMessageManager().postJoystickButtonUp({joystick, button});
}

void OrvMessageManager::postToggleSystemPanel() { master.post(OrvMessage::TOGGLE_SYSTEM_PANEL()); }

void OrvMessageManager::postChangeTempo(const RelativeFixedValue& value, bool notify)
{
    master.post(OrvMessage::CHANGE_TEMPO(value, notify));
}

void OrvMessageManager::postChangeMidiThru(const OnOffToggle& value, bool notify)
{
    master.post(OrvMessage::CHANGE_MIDI_THRU(value, notify));
}

void OrvMessageManager::postSetTempoSource(int source, bool notify)
{
    master.post(OrvMessage::SET_TEMPO_SOURCE(source, notify));
}

void OrvMessageManager::postEdit(const Edit& edit) { master.post(OrvMessage::EDIT(edit)); }

void OrvMessageManager::postUndo(std::uint32_t gesture) { master.post(OrvMessage::UNDO(gesture)); }

void OrvMessageManager::postRedo(std::uint32_t gesture) { master.post(OrvMessage::REDO(gesture)); }

void OrvMessageManager::postKeepDrafts(bool on) { master.post(OrvMessage::KEEP_DRAFTS(on)); }

void OrvMessageManager::postDiscardEdits() { master.post(OrvMessage::DISCARD_EDITS()); }

void OrvMessageManager::postLearn(const LearnKinds& kinds, std::uint32_t number)
{
    master.post(OrvMessage::LEARN(kinds, number));
}
void OrvMessageManager::postEditBank(const BankEdit& edit) { master.post(OrvMessage::EDIT_BANK(edit)); }

void OrvMessageManager::postMakeBank(const std::string& path, NewBank content, const WindowHandle& window)
{
    master.post(OrvMessage::MAKE_BANK(path, content, window));
}

void OrvMessageManager::postContinueLast(bool loadsIt) { master.post(OrvMessage::CONTINUE_LAST(loadsIt)); }

void OrvMessageManager::postUndoBank(const std::string& path) { master.post(OrvMessage::UNDO_BANK(path)); }

void OrvMessageManager::postRedoBank(const std::string& path) { master.post(OrvMessage::REDO_BANK(path)); }

void OrvMessageManager::postEditSetList(const SetListEdit& edit) { master.post(OrvMessage::EDIT_SET_LIST(edit)); }

void OrvMessageManager::postUndoSetList() { master.post(OrvMessage::UNDO_SET_LIST()); }

void OrvMessageManager::postRedoSetList() { master.post(OrvMessage::REDO_SET_LIST()); }

void OrvMessageManager::postEnableSetList(bool on) { master.post(OrvMessage::ENABLE_SET_LIST(on)); }

void OrvMessageManager::postGoToSetEntry(int id) { master.post(OrvMessage::GO_TO_SET_ENTRY(id)); }

void OrvMessageManager::postKeepRecovery(const RecoveryPlan& plan) { master.post(OrvMessage::KEEP_RECOVERY(plan)); }

void OrvMessageManager::postDiscardRecovered() { master.post(OrvMessage::DISCARD_RECOVERED()); }

void OrvMessageManager::postKeepSetPosition(bool on) { master.post(OrvMessage::KEEP_SET_POSITION(on)); }

void OrvMessageManager::postWatchMidiInputs(bool on) { master.post(OrvMessage::WATCH_MIDI_INPUTS(on)); }

void OrvMessageManager::postWatchNotes(bool on) { master.post(OrvMessage::WATCH_NOTES(on)); }

// --- settings

void OrvMessageManager::postSetting(Message setting) { master.post(std::move(setting)); }

void OrvMessageManager::postSetLastWindowPosition(const WindowsLib::Rect& position)
{
    master.post(SETTING<Settings::LAST_WINDOW_POSITION>(position));
}

void OrvMessageManager::postSetDockToBottomEdge(bool on) { master.post(SETTING<Settings::DOCK_TO_BOTTOM_EDGE>(on)); }

void OrvMessageManager::postSetDisplayHeight(int pixels) { master.post(SETTING<Settings::DISPLAY_HEIGHT>(pixels)); }

void OrvMessageManager::postSetDisplayNumbers(bool on) { master.post(SETTING<Settings::DISPLAY_NUMBERS>(on)); }

void OrvMessageManager::postSetDisplayMidiInputEvents(bool on)
{
    master.post(SETTING<Settings::DISPLAY_MIDI_INPUT_EVENTS>(on));
}

void OrvMessageManager::postSetDisplayMidiOutputEvents(bool on)
{
    master.post(SETTING<Settings::DISPLAY_MIDI_OUTPUT_EVENTS>(on));
}

void OrvMessageManager::postSetRetroRecordBufferSize(int bytes)
{
    master.post(SETTING<Settings::RETRO_RECORD_BUFFER_SIZE>(bytes));
}

void OrvMessageManager::postEnableRetroRecord(bool on) { master.post(SETTING<Settings::RETRO_RECORD_ENABLED>(on)); }

void OrvMessageManager::postSetLargeDisplayFont(bool on) { master.post(SETTING<Settings::LARGE_DISPLAY_FONT>(on)); }

void OrvMessageManager::postSetAlwaysOnTop(bool on) { master.post(SETTING<Settings::ALWAYS_ON_TOP>(on)); }

void OrvMessageManager::postSetUseSkinBorder(bool on) { master.post(SETTING<Settings::USE_SKIN_BORDER>(on)); }

void OrvMessageManager::postChangeGlobalKeyboard(const OnOffToggle& value, bool notify)
{
    master.post(OrvMessage::CHANGE_GLOBAL_KEYBOARD(value, notify));
}

void OrvMessageManager::postSetMouseSensitivity(int divisor)
{
    master.post(SETTING<Settings::MOUSE_SENSITIVITY>(divisor));
}

void OrvMessageManager::postSetLiteVelocity(int velocity) { master.post(SETTING<Settings::LITE_VELOCITY>(velocity)); }

void OrvMessageManager::postSetLiteChannel(int channel) { master.post(SETTING<Settings::LITE_CHANNEL>(channel)); }

void OrvMessageManager::postSetLiteStackNotes(bool on) { master.post(SETTING<Settings::LITE_STACK_NOTES>(on)); }

void OrvMessageManager::postSetClickZoneChannelTranspose(bool on)
{
    master.post(SETTING<Settings::CLICK_ZONE_CHANNEL_TRANSPOSE>(on));
}
}  // namespace Backend
