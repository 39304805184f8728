#include "backend/core/OrvCommands.h"

#include <algorithm>
#include <array>

#include "api/HostState.h"
#include "api/OrvIF.h"
#include "backend/messages/OrvMessages.h"

namespace Backend
{
using namespace OrvMessage;

namespace
{
constexpr auto COMMANDS = std::to_array<Command<OrvIF>>({
    answer<GET_PROGRAM_AS_STRING, &OrvIF::getProgramAsString>(),
    on<INITIALIZE, &OrvIF::initialize>(),
    on<END, &OrvIF::end>(),
    on<SEND_MIDI_INPUT_PORTS, &OrvIF::setMidiInputPorts>(),
    on<SET_MIDI_INPUT_PORTS, &OrvIF::setMidiInputPorts>(),
    on<SEND_MIDI_OUTPUT_PORTS, &OrvIF::setMidiOutputPorts>(),
    on<SET_MIDI_OUTPUT_PORTS, &OrvIF::setMidiOutputPorts>(),
    on<END_INITIALIZE, &OrvIF::endInitialize>(),
    on<SET_LAST_WINDOW_POSITION, &OrvIF::setLastWindowPosition>(),
    on<REMOVE_GUI_WINDOW_HANDLE, &OrvIF::removeGuiWindowHandle>(),
    on<SET_DOCK_TO_BOTTOM_EDGE, &OrvIF::setDockToBottomEdge>(),
    on<SET_DEFAULT_BANK, &OrvIF::setDefaultBank>(),
    on<SET_DISPLAY_HEIGHT, &OrvIF::setDisplayHeight>(),
    on<SET_DISPLAY_NUMBERS, &OrvIF::setDisplayNumbers>(),
    on<SET_DISPLAY_MIDI_INPUT_EVENTS, &OrvIF::setDisplayMidiInputEvents>(),
    on<SET_DISPLAY_MIDI_OUTPUT_EVENTS, &OrvIF::setDisplayMidiOutputEvents>(),
    on<SET_LARGE_DISPLAY_FONT, &OrvIF::setLargeDisplayFont>(),
    on<SET_ALWAYS_ON_TOP, &OrvIF::setAlwaysOnTop>(),
    on<REFRESH_GUI, &OrvIF::refreshGui>(),
    on<EXECUTE_FUNCTION, &OrvIF::executeFunction>(),
    on<IMPORT_VERSION2_BANK, &OrvIF::importVersion2Bank>(),
    on<IMPORT_VERSION2_PROGRAM, &OrvIF::importVersion2Program>(),
    on<IMPORT_VERSION2_PRESET, &OrvIF::importVersion2Preset>(),
    on<SAVE_TO_CURRENT_BANK, &OrvIF::saveToCurrentBank>(),
    on<SAVE_TO_BANK, &OrvIF::saveToBank>(),
    on<SAVE_TO_PROGRAM, &OrvIF::saveToProgram>(),
    onParam<PLAY_MIDI, &OrvIF::playMidi>(),
    onAlloc<PLAY_MIDI, &OrvIF::playMidi>(),
    on<ENABLE_MIDI_INPUT, &OrvIF::enableMidiInput>(),
    on<ENABLE_MIDI_OUTPUT, &OrvIF::enableMidiOutput>(),
    onParam<PROCESS_MIDI_INPUT_EVENT, &OrvIF::processMidiInputEvent>(),
    onAlloc<PROCESS_MIDI_INPUT_EVENT, &OrvIF::processMidiInputEvent>(),
    on<RESET_ORV, &OrvIF::resetOrv>(),
    on<LOAD_PROGRAM, &OrvIF::loadProgram>(),
    on<LOAD_BANK, &OrvIF::loadBank>(),
    on<ADD_SEQUENCE_PRESET, &OrvIF::addSequencePreset>(),
    on<CHANGE_BANK_SIZE, &OrvIF::changeBankSize>(),
    on<CHANGE_PROGRAM_NAME, &OrvIF::changeProgramName>(),
    on<CHANGE_PROGRAM, static_cast<void (OrvIF::*)(const SelectType&)>(&OrvIF::changeProgram)>(),
    on<CHANGE_DEFAULT_MIDI_OUTPUT, &OrvIF::changeDefaultMidiOutput>(),
    on<SET_SCREEN_STATE, &OrvIF::setScreenState>(),
    on<SET_USE_SKIN_BORDER, &OrvIF::setUseSkinBorder>(),
    on<TOGGLE_SYSTEM_PANEL, &OrvIF::toggleSystemPanel>(),
    on<SET_RETRO_RECORD_BUFFER_SIZE, &OrvIF::setRetroRecordBufferSize>(),
    on<ENABLE_RETRO_RECORD, &OrvIF::enableRetroRecord>(),
    on<CHANGE_TEMPO, &OrvIF::changeTempo>(),
    on<CHANGE_MIDI_THRU, &OrvIF::changeMidiThru>(),
    on<CHANGE_GLOBAL_KEYBOARD, &OrvIF::changeGlobalKeyboard>(),
    on<SET_TEMPO_SOURCE, &OrvIF::setTempoSource>(),
    on<SET_MOUSE_SENSITIVITY, &OrvIF::setMouseSensitivity>(),
    on<SET_LITE_VELOCITY, &OrvIF::setLiteVelocity>(),
    on<SET_LITE_CHANNEL, &OrvIF::setLiteChannel>(),
    on<SET_LITE_STACK_NOTES, &OrvIF::setLiteStackNotes>(),
    on<SET_CLICK_ZONE_CHANNEL_TRANSPOSE, &OrvIF::setClickZoneChannelTranspose>(),
    on<LOAD_PROGRAM_FROM_STRING, &OrvIF::loadProgramFromString>(),
    on<DELETE_SEQUENCE_PRESET, &OrvIF::deleteSequencePreset>(),
    on<SAVE_RETRO_RECORD, &OrvIF::saveRetroRecord>(),
    answer<SAVE_STATE, &OrvIF::saveState>(),
    answer<CREATE_ORV_GUI, &OrvIF::createOrvGui>(),
});

constexpr auto WAIT_FOR_FILES = std::to_array<unsigned int>(
    {END, SET_DEFAULT_BANK, IMPORT_VERSION2_BANK, IMPORT_VERSION2_PROGRAM, IMPORT_VERSION2_PRESET, SAVE_TO_CURRENT_BANK,
     SAVE_TO_BANK, SAVE_TO_PROGRAM, LOAD_PROGRAM, LOAD_BANK, CHANGE_BANK_SIZE, CHANGE_PROGRAM, LOAD_PROGRAM_FROM_STRING,
     SAVE_STATE});
}  // namespace

bool waitsForFiles(unsigned int number) { return std::ranges::count(WAIT_FOR_FILES, number) > 0; }

void executeOrvCommand(OrvIF& orv, Message& message) { execute<OrvIF>(COMMANDS, orv, message); }
}  // namespace Backend
