#include "backend/core/OrvMessageManager.h"

#include <array>
#include <memory>
#include <string>
#include <utility>

#include "backend/messages/Command.h"
#include "backend/messages/MessageManagerMaster.h"
#include "backend/sections/controls/ControlMessageManager.h"
#include "backend/sections/joystick/JoystickMessageManager.h"

namespace Backend
{
using MidiEngine::MidiInputPorts;
using MidiEngine::MidiOutputPorts;
using MidiEngine::OrvMidiMessage;

namespace
{
enum Number : unsigned int {
    FIRST = 33218,
    GET_PROGRAM_AS_STRING = FIRST,
    INITIALIZE = 33219,
    END = 33220,
    SEND_MIDI_INPUT_PORTS = 33221,
    SET_MIDI_INPUT_PORTS = 33222,
    SEND_MIDI_OUTPUT_PORTS = 33223,
    SET_MIDI_OUTPUT_PORTS = 33224,
    END_INITIALIZE = 33225,
    CREATE_ORV_GUI = 33226,
    SET_LAST_WINDOW_POSITION = 33227,
    REMOVE_GUI_WINDOW_HANDLE = 33228,
    SET_DOCK_TO_BOTTOM_EDGE = 33229,
    SET_DEFAULT_BANK = 33230,
    SET_DISPLAY_HEIGHT = 33231,
    SET_DISPLAY_NUMBERS = 33232,
    SET_LARGE_DISPLAY_FONT = 33233,
    SET_DISPLAY_MIDI_INPUT_EVENTS = 33234,
    SET_DISPLAY_MIDI_OUTPUT_EVENTS = 33235,
    SET_ALWAYS_ON_TOP = 33236,
    REFRESH_GUI = 33237,
    EXECUTE_FUNCTION = 33238,
    IMPORT_VERSION2_BANK = 33241,
    IMPORT_VERSION2_PROGRAM = 33242,
    IMPORT_VERSION2_PRESET = 33243,
    SAVE_TO_CURRENT_BANK = 33244,
    SAVE_TO_BANK = 33245,
    SAVE_TO_PROGRAM = 33246,
    PLAY_MIDI_VIA_ALLOC = 33247,
    PLAY_MIDI_VIA_PARAM = 33248,
    ENABLE_MIDI_INPUT = 33249,
    ENABLE_MIDI_OUTPUT = 33250,
    PROCESS_MIDI_INPUT_EVENT_VIA_PARAM = 33251,
    PROCESS_MIDI_INPUT_EVENT_VIA_ALLOC = 33252,
    RESET_ORV = 33253,
    LOAD_PROGRAM = 33239,
    LOAD_BANK = 33240,
    ADD_SEQUENCE_PRESET = 33256,
    CHANGE_BANK_SIZE = 33254,
    CHANGE_PROGRAM_NAME = 33255,
    CHANGE_PROGRAM = 33257,
    CHANGE_DEFAULT_MIDI_OUTPUT = 33258,
    SET_SCREEN_STATE = 33259,
    SET_USE_SKIN_BORDER = 33260,
    TOGGLE_SYSTEM_PANEL = 33261,
    SET_RETRO_RECORD_BUFFER_SIZE = 33262,
    ENABLE_RETRO_RECORD = 33263,
    CHANGE_TEMPO = 33264,
    CHANGE_MIDI_THRU = 33265,
    CHANGE_GLOBAL_KEYBOARD = 33266,
    SET_TEMPO_SOURCE = 33267,
    SET_MOUSE_SENSITIVITY = 33268,
    SET_LITE_VELOCITY = 33269,
    SET_LITE_CHANNEL = 33270,
    SET_LITE_STACK_NOTES = 33271,
    SET_CLICK_ZONE_CHANNEL_TRANSPOSE = 33272,
    LOAD_PROGRAM_FROM_STRING = 33273,
    LAST = 33274,
    SAVE_STATE = LAST
};

/// Answers into a text that the one who waits holds too.
void carryOutGetProgramAsString(OrvIF& orv, Message& message)
{
    if (auto* const text = message.payload.get<std::shared_ptr<std::string>>()) **text = orv.getProgramAsString();
}

void carryOutSaveState(OrvIF& orv, Message& message)
{
    if (auto* const state = message.payload.get<std::shared_ptr<HostState>>()) **state = orv.saveState();
}

void carryOutCreateOrvGui(OrvIF& orv, Message& message)
{
    if (auto* const gui = message.payload.get<std::shared_ptr<Gui::OrvGuiIF*>>())
        **gui = orv.createOrvGui(message.wparam != 0);
}

constexpr auto COMMANDS = std::to_array<Command<OrvIF>>({
    {GET_PROGRAM_AS_STRING, "GetProgramAsString", &carryOutGetProgramAsString},
    command<&OrvIF::initialize>(INITIALIZE, "Initialize"),
    command<&OrvIF::end>(END, "End"),
    command<&OrvIF::setMidiInputPorts>(SEND_MIDI_INPUT_PORTS, "SendSetMidiInputPorts"),
    command<&OrvIF::setMidiInputPorts>(SET_MIDI_INPUT_PORTS, "SetMidiInputPorts"),
    command<&OrvIF::setMidiOutputPorts>(SEND_MIDI_OUTPUT_PORTS, "SendSetMidiOutputPorts"),
    command<&OrvIF::setMidiOutputPorts>(SET_MIDI_OUTPUT_PORTS, "SetMidiOutputPorts"),
    command<&OrvIF::endInitialize>(END_INITIALIZE, "EndInitialize"),
    {CREATE_ORV_GUI, "CreateOrvGui", &carryOutCreateOrvGui},
    command<&OrvIF::setLastWindowPosition>(SET_LAST_WINDOW_POSITION, "SetLastWindowPosition"),
    command<&OrvIF::removeGuiWindowHandle>(REMOVE_GUI_WINDOW_HANDLE, "RemoveGuiWindowHandle"),
    command<&OrvIF::setDockToBottomEdge>(SET_DOCK_TO_BOTTOM_EDGE, "SetDockToBottomEdge"),
    command<&OrvIF::setDefaultBank>(SET_DEFAULT_BANK, "SetDefaultBank"),
    command<&OrvIF::setDisplayHeight>(SET_DISPLAY_HEIGHT, "SetDisplayHeight"),
    command<&OrvIF::setDisplayNumbers>(SET_DISPLAY_NUMBERS, "SetDisplayNumbers"),
    command<&OrvIF::setDisplayMidiInputEvents>(SET_DISPLAY_MIDI_INPUT_EVENTS, "SetDisplayMidiInputEvents"),
    command<&OrvIF::setDisplayMidiOutputEvents>(SET_DISPLAY_MIDI_OUTPUT_EVENTS, "SetDisplayMidiOutputEvents"),
    command<&OrvIF::setLargeDisplayFont>(SET_LARGE_DISPLAY_FONT, "SetLargeDisplayFont"),
    command<&OrvIF::setAlwaysOnTop>(SET_ALWAYS_ON_TOP, "SetAlwaysOnTop"),
    command<&OrvIF::refreshGui>(REFRESH_GUI, "RefreshGui"),
    command<&OrvIF::executeFunction>(EXECUTE_FUNCTION, "ExecuteFunction"),
    command<&OrvIF::importVersion2Bank>(IMPORT_VERSION2_BANK, "ImportVersion2Bank"),
    command<&OrvIF::importVersion2Program>(IMPORT_VERSION2_PROGRAM, "ImportVersion2Program"),
    command<&OrvIF::importVersion2Preset>(IMPORT_VERSION2_PRESET, "ImportVersion2Preset"),
    command<&OrvIF::saveToCurrentBank>(SAVE_TO_CURRENT_BANK, "SaveToCurrentBank"),
    command<&OrvIF::saveToBank>(SAVE_TO_BANK, "SaveToBank"),
    command<&OrvIF::saveToProgram>(SAVE_TO_PROGRAM, "SaveToProgram"),
    command<&OrvIF::playMidi>(PLAY_MIDI_VIA_ALLOC, "PlayMidiViaAlloc"),
    eventCommand<&OrvIF::playMidi>(PLAY_MIDI_VIA_PARAM, "PlayMidiViaParam"),
    command<&OrvIF::enableMidiInput>(ENABLE_MIDI_INPUT, "EnableMidiInput"),
    command<&OrvIF::enableMidiOutput>(ENABLE_MIDI_OUTPUT, "EnableMidiOutput"),
    eventCommand<&OrvIF::processMidiInputEvent>(PROCESS_MIDI_INPUT_EVENT_VIA_PARAM, "ProcessMidiInputEventViaParam"),
    command<&OrvIF::processMidiInputEvent>(PROCESS_MIDI_INPUT_EVENT_VIA_ALLOC, "ProcessMidiInputEventViaAlloc"),
    command<&OrvIF::resetOrv>(RESET_ORV, "ResetOrv"),
    command<&OrvIF::loadProgram>(LOAD_PROGRAM, "LoadProgram"),
    command<&OrvIF::loadBank>(LOAD_BANK, "LoadBank"),
    command<&OrvIF::addSequencePreset>(ADD_SEQUENCE_PRESET, "AddSequencePreset"),
    command<&OrvIF::changeBankSize>(CHANGE_BANK_SIZE, "ChangeBankSize"),
    command<&OrvIF::changeProgramName>(CHANGE_PROGRAM_NAME, "ChangeProgramName"),
    command<static_cast<void (OrvIF::*)(const SelectType&)>(&OrvIF::changeProgram)>(CHANGE_PROGRAM, "ChangeProgram"),
    command<&OrvIF::changeDefaultMidiOutput>(CHANGE_DEFAULT_MIDI_OUTPUT, "ChangeDefaultMidiOutput"),
    command<&OrvIF::setScreenState>(SET_SCREEN_STATE, "SetScreenState"),
    command<&OrvIF::setUseSkinBorder>(SET_USE_SKIN_BORDER, "SetUseSkinBorder"),
    command<&OrvIF::toggleSystemPanel>(TOGGLE_SYSTEM_PANEL, "ToggleSystemPanel"),
    command<&OrvIF::setRetroRecordBufferSize>(SET_RETRO_RECORD_BUFFER_SIZE, "SetRetroRecordBufferSize"),
    command<&OrvIF::enableRetroRecord>(ENABLE_RETRO_RECORD, "EnableRetroRecord"),
    command<&OrvIF::changeTempo>(CHANGE_TEMPO, "ChangeTempo"),
    command<&OrvIF::changeMidiThru>(CHANGE_MIDI_THRU, "ChangeMidiThru"),
    command<&OrvIF::changeGlobalKeyboard>(CHANGE_GLOBAL_KEYBOARD, "ChangeGlobalKeyboard"),
    command<&OrvIF::setTempoSource>(SET_TEMPO_SOURCE, "SetTempoSource"),
    command<&OrvIF::setMouseSensitivity>(SET_MOUSE_SENSITIVITY, "SetMouseSensitivity"),
    command<&OrvIF::setLiteVelocity>(SET_LITE_VELOCITY, "SetLiteVelocity"),
    command<&OrvIF::setLiteChannel>(SET_LITE_CHANNEL, "SetLiteChannel"),
    command<&OrvIF::setLiteStackNotes>(SET_LITE_STACK_NOTES, "SetLiteStackNotes"),
    command<&OrvIF::setClickZoneChannelTranspose>(SET_CLICK_ZONE_CHANNEL_TRANSPOSE, "SetClickZoneChannelTranspose"),
    command<&OrvIF::loadProgramFromString>(LOAD_PROGRAM_FROM_STRING, "LoadProgramFromString"),
    {SAVE_STATE, "SaveState", &carryOutSaveState},
});
}  // namespace

OrvMessageManager::OrvMessageManager(MessageManagerMaster& managerMaster, OrvIF& backend)
    : MessageManager(managerMaster), orv(backend)
{
}

bool OrvMessageManager::wantMessage(unsigned int message) const { return message >= FIRST && message <= LAST; }

void OrvMessageManager::handleMessage(Message& message) { carryOut<OrvIF>(COMMANDS, orv, message); }

void OrvMessageManager::sendInitialize() { master.send(pack(INITIALIZE)); }

void OrvMessageManager::sendEnd() { master.send(pack(END)); }

void OrvMessageManager::sendSetMidiInputPorts(const MidiInputPorts& ports)
{
    master.send(pack(SEND_MIDI_INPUT_PORTS, ports));
}

void OrvMessageManager::postSetMidiInputPorts(const MidiInputPorts& ports)
{
    master.post(pack(SET_MIDI_INPUT_PORTS, ports));
}

void OrvMessageManager::sendSetMidiOutputPorts(const MidiOutputPorts& ports)
{
    master.send(pack(SEND_MIDI_OUTPUT_PORTS, ports));
}

void OrvMessageManager::postSetMidiOutputPorts(const MidiOutputPorts& ports)
{
    master.post(pack(SET_MIDI_OUTPUT_PORTS, ports));
}

void OrvMessageManager::sendEndInitialize() { master.send(pack(END_INITIALIZE)); }

HostState OrvMessageManager::sendSaveState()
{
    const auto state = std::make_shared<HostState>();
    master.send({.number = SAVE_STATE, .payload = Payload::of(std::shared_ptr(state))});
    return *state;
}

Gui::OrvGuiIF* OrvMessageManager::sendCreateOrvGui(bool isVstPlugin)
{
    const auto gui = std::make_shared<Gui::OrvGuiIF*>(nullptr);
    master.send(
        {.number = CREATE_ORV_GUI, .wparam = isVstPlugin ? 1u : 0u, .payload = Payload::of(std::shared_ptr(gui))});
    return *gui;
}

void OrvMessageManager::postRefreshGui() { master.post(pack(REFRESH_GUI)); }

void OrvMessageManager::postRemoveGuiWindowHandle() { master.post(pack(REMOVE_GUI_WINDOW_HANDLE)); }

void OrvMessageManager::postPlayMidi(const OrvMidiMessage& event)
{
    master.post(packEvent(PLAY_MIDI_VIA_PARAM, PLAY_MIDI_VIA_ALLOC, event));
}

void OrvMessageManager::postEnableMidiInput(int port, bool enabled)
{
    master.post(pack(ENABLE_MIDI_INPUT, port, enabled));
}

void OrvMessageManager::postEnableMidiOutput(int port, bool enabled)
{
    master.post(pack(ENABLE_MIDI_OUTPUT, port, enabled));
}

void OrvMessageManager::postProcessMidiInputEvent(const OrvMidiMessage& event)
{
    master.post(packEvent(PROCESS_MIDI_INPUT_EVENT_VIA_PARAM, PROCESS_MIDI_INPUT_EVENT_VIA_ALLOC, event));
}

void OrvMessageManager::postChangeControl(const Cell& cell, std::int32_t value)
{
    orv.getControlMessageManager().postSetValue(cell, value);
}

void OrvMessageManager::postResetOrv() { master.post(pack(RESET_ORV)); }

void OrvMessageManager::postLoadProgram(const std::string& path) { master.post(pack(LOAD_PROGRAM, path)); }

void OrvMessageManager::postLoadBank(const std::string& path) { master.post(pack(LOAD_BANK, path)); }

void OrvMessageManager::postAddSequencePreset(const std::string& name, const std::string& text)
{
    master.post(pack(ADD_SEQUENCE_PRESET, name, text));
}

void OrvMessageManager::postSetDefaultBank(const std::string& path) { master.post(pack(SET_DEFAULT_BANK, path)); }

void OrvMessageManager::postImportVersion2Bank(const std::string& source, const std::string& target,
                                               const WindowHandle& window)
{
    master.post(pack(IMPORT_VERSION2_BANK, source, target, window));
}

void OrvMessageManager::postImportVersion2Program(const std::string& source, const std::string& target,
                                                  const WindowHandle& window)
{
    master.post(pack(IMPORT_VERSION2_PROGRAM, source, target, window));
}

void OrvMessageManager::postImportVersion2Preset(const std::string& source, const std::string& name,
                                                 const WindowHandle& window)
{
    master.post(pack(IMPORT_VERSION2_PRESET, source, name, window));
}

void OrvMessageManager::postSaveToCurrentBank(int number, const WindowHandle& window)
{
    master.post(pack(SAVE_TO_CURRENT_BANK, number, window));
}

void OrvMessageManager::postSaveToBank(const std::string& path, const WindowHandle& window)
{
    master.post(pack(SAVE_TO_BANK, path, window));
}

void OrvMessageManager::postSaveToProgram(const std::string& path, const WindowHandle& window)
{
    master.post(pack(SAVE_TO_PROGRAM, path, window));
}

void OrvMessageManager::postChangeBankSize(int size, const WindowHandle& window)
{
    master.post(pack(CHANGE_BANK_SIZE, size, window));
}

void OrvMessageManager::postChangeProgramName(const std::string& name) { master.post(pack(CHANGE_PROGRAM_NAME, name)); }

std::string OrvMessageManager::sendGetProgramAsString()
{
    auto text = std::make_shared<std::string>();
    master.send({.number = GET_PROGRAM_AS_STRING, .payload = Payload::of(std::shared_ptr(text))});
    return std::move(*text);
}

void OrvMessageManager::postLoadProgramFromString(const std::string& text, int number)
{
    master.post(pack(LOAD_PROGRAM_FROM_STRING, text, number));
}

void OrvMessageManager::postSetScreenState(const ScreenState& state) { master.post(pack(SET_SCREEN_STATE, state)); }

void OrvMessageManager::postChangeProgram(const SelectType& select) { master.post(pack(CHANGE_PROGRAM, select)); }

void OrvMessageManager::postChangeDefaultMidiOutput(const SelectType& select)
{
    master.post(pack(CHANGE_DEFAULT_MIDI_OUTPUT, select));
}

void OrvMessageManager::postKeyDown(const Key& key, bool isRepeat) { orv.keyDown(key, isRepeat); }

void OrvMessageManager::postKeyUp(const Key& key) { orv.keyUp(key); }

void OrvMessageManager::postExecuteFunction(const std::string& xml) { master.post(pack(EXECUTE_FUNCTION, xml)); }
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

void OrvMessageManager::postToggleSystemPanel() { master.post(pack(TOGGLE_SYSTEM_PANEL)); }

void OrvMessageManager::postChangeTempo(const RelativeFixedValue& value, bool notify)
{
    master.post(pack(CHANGE_TEMPO, value, notify));
}

void OrvMessageManager::postChangeMidiThru(const OnOffToggle& value, bool notify)
{
    master.post(pack(CHANGE_MIDI_THRU, value, notify));
}

void OrvMessageManager::postSetTempoSource(int source, bool notify)
{
    master.post(pack(SET_TEMPO_SOURCE, source, notify));
}

// --- settings

void OrvMessageManager::postSetLastWindowPosition(const WindowsLib::Rect& position)
{
    master.post(pack(SET_LAST_WINDOW_POSITION, position));
}

void OrvMessageManager::postSetDockToBottomEdge(bool on) { master.post(pack(SET_DOCK_TO_BOTTOM_EDGE, on)); }

void OrvMessageManager::postSetDisplayHeight(int pixels) { master.post(pack(SET_DISPLAY_HEIGHT, pixels)); }

void OrvMessageManager::postSetDisplayNumbers(bool on) { master.post(pack(SET_DISPLAY_NUMBERS, on)); }

void OrvMessageManager::postSetDisplayMidiInputEvents(bool on) { master.post(pack(SET_DISPLAY_MIDI_INPUT_EVENTS, on)); }

void OrvMessageManager::postSetDisplayMidiOutputEvents(bool on)
{
    master.post(pack(SET_DISPLAY_MIDI_OUTPUT_EVENTS, on));
}

void OrvMessageManager::postSetRetroRecordBufferSize(int bytes)
{
    master.post(pack(SET_RETRO_RECORD_BUFFER_SIZE, bytes));
}

void OrvMessageManager::postEnableRetroRecord(bool on) { master.post(pack(ENABLE_RETRO_RECORD, on)); }

void OrvMessageManager::postSetLargeDisplayFont(bool on) { master.post(pack(SET_LARGE_DISPLAY_FONT, on)); }

void OrvMessageManager::postSetAlwaysOnTop(bool on) { master.post(pack(SET_ALWAYS_ON_TOP, on)); }

void OrvMessageManager::postSetUseSkinBorder(bool on) { master.post(pack(SET_USE_SKIN_BORDER, on)); }

void OrvMessageManager::postChangeGlobalKeyboard(const OnOffToggle& value, bool notify)
{
    master.post(pack(CHANGE_GLOBAL_KEYBOARD, value, notify));
}

void OrvMessageManager::postSetMouseSensitivity(int divisor) { master.post(pack(SET_MOUSE_SENSITIVITY, divisor)); }

void OrvMessageManager::postSetLiteVelocity(int velocity) { master.post(pack(SET_LITE_VELOCITY, velocity)); }

void OrvMessageManager::postSetLiteChannel(int channel) { master.post(pack(SET_LITE_CHANNEL, channel)); }

void OrvMessageManager::postSetLiteStackNotes(bool on) { master.post(pack(SET_LITE_STACK_NOTES, on)); }

void OrvMessageManager::postSetClickZoneChannelTranspose(bool on)
{
    master.post(pack(SET_CLICK_ZONE_CHANNEL_TRANSPOSE, on));
}
}  // namespace Backend
