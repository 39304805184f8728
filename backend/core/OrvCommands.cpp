#include "backend/core/OrvCommands.h"

#include <algorithm>
#include <array>

#include "api/HostState.h"
#include "api/OrvIF.h"
#include "backend/core/SettingCommands.h"
#include "backend/messages/OrvMessages.h"
#include "backend/model/BankEdit.h"
#include "backend/model/Edit.h"
#include "backend/model/SetList.h"

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
    on<REMOVE_GUI_WINDOW_HANDLE, &OrvIF::removeGuiWindowHandle>(),
    on<SETTING<Settings::DEFAULT_BANK>, &OrvIF::setDefaultBank>(),
    on<SETTING<Settings::DISPLAY_NUMBERS>, &OrvIF::setDisplayNumbers>(),
    on<SETTING<Settings::DISPLAY_TIMES>, &OrvIF::setDisplayTimes>(),
    on<SETTING<Settings::DISPLAY_MIDI_INPUT_EVENTS>, &OrvIF::setDisplayMidiInputEvents>(),
    on<SETTING<Settings::DISPLAY_MIDI_OUTPUT_EVENTS>, &OrvIF::setDisplayMidiOutputEvents>(),
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
    on<TOGGLE_SYSTEM_PANEL, &OrvIF::toggleSystemPanel>(),
    on<SETTING<Settings::RETRO_RECORD_BUFFER_SIZE>, &OrvIF::setRetroRecordBufferSize>(),
    on<SETTING<Settings::RETRO_RECORD_ENABLED>, &OrvIF::enableRetroRecord>(),
    on<SETTING<Settings::KEEP_NOTES>, &OrvIF::setKeepNotes>(),
    on<CHANGE_TEMPO, &OrvIF::changeTempo>(),
    on<CHANGE_MIDI_THRU, &OrvIF::changeMidiThru>(),
    on<CHANGE_GLOBAL_KEYBOARD, &OrvIF::changeGlobalKeyboard>(),
    on<SET_TEMPO_SOURCE, &OrvIF::setTempoSource>(),
    on<LOAD_PROGRAM_FROM_STRING, &OrvIF::loadProgramFromString>(),
    on<SET_PROGRAM_NUMBER, &OrvIF::setProgramNumber>(),
    on<MIDI_INPUT_EVENT_LOST, &OrvIF::midiInputEventLost>(),
    on<TAP_TEMPO, &OrvIF::tapTempo>(),
    on<RELEASE_MIDI_INPUT, &OrvIF::releaseMidiInput>(),
    on<DELETE_SEQUENCE_PRESET, &OrvIF::deleteSequencePreset>(),
    on<SAVE_RETRO_RECORD, &OrvIF::saveRetroRecord>(),
    on<EDIT, &OrvIF::edit>(),
    on<UNDO, &OrvIF::undo>(),
    on<REDO, &OrvIF::redo>(),
    on<KEEP_DRAFTS, &OrvIF::keepDrafts>(),
    on<KEEP_RECOVERY, &OrvIF::keepRecovery>(),
    on<DISCARD_RECOVERED, &OrvIF::discardRecovered>(),
    on<DISCARD_EDITS, &OrvIF::discardEdits>(),
    on<EDIT_BANK, &OrvIF::editBank>(),
    on<UNDO_BANK, &OrvIF::undoBank>(),
    on<REDO_BANK, &OrvIF::redoBank>(),
    on<RENAME_SEQUENCE_PRESET, &OrvIF::renameSequencePreset>(),
    on<MAKE_BANK, &OrvIF::makeBank>(),
    on<CONTINUE_LAST, &OrvIF::continueLast>(),
    on<LEARN, &OrvIF::learn>(),
    on<WATCH_MIDI_INPUTS, &OrvIF::watchMidiInputs>(),
    on<EDIT_SET_LIST, &OrvIF::editSetList>(),
    on<UNDO_SET_LIST, &OrvIF::undoSetList>(),
    on<REDO_SET_LIST, &OrvIF::redoSetList>(),
    on<ENABLE_SET_LIST, &OrvIF::enableSetList>(),
    on<GO_TO_SET_ENTRY, &OrvIF::goToSetEntry>(),
    on<KEEP_SET_POSITION, &OrvIF::keepSetPosition>(),
    on<SETTING<Settings::PROGRAM_CHANGE_INPUT>, &OrvIF::setProgramChangeInput>(),
    on<SETTING<Settings::PROGRAM_CHANGE_CHANNEL>, &OrvIF::setProgramChangeChannel>(),
    on<WATCH_NOTES, &OrvIF::watchNotes>(),
    answer<SAVE_STATE, &OrvIF::saveState>(),
    answer<GET_HOST_START, &OrvIF::getHostStart>(),
    answer<CREATE_ORV_GUI, &OrvIF::createOrvGui>(),
});

constexpr auto WAIT_FOR_FILES = std::to_array<unsigned int>({END,
                                                             Settings::DEFAULT_BANK.number,
                                                             IMPORT_VERSION2_BANK,
                                                             IMPORT_VERSION2_PROGRAM,
                                                             IMPORT_VERSION2_PRESET,
                                                             SAVE_TO_CURRENT_BANK,
                                                             SAVE_TO_BANK,
                                                             SAVE_TO_PROGRAM,
                                                             LOAD_PROGRAM,
                                                             LOAD_BANK,
                                                             CHANGE_BANK_SIZE,
                                                             CHANGE_PROGRAM,
                                                             LOAD_PROGRAM_FROM_STRING,
                                                             SET_PROGRAM_NUMBER,
                                                             SAVE_STATE,
                                                             EDIT_BANK,
                                                             UNDO_BANK,
                                                             REDO_BANK,
                                                             EDIT_SET_LIST,
                                                             UNDO_SET_LIST,
                                                             REDO_SET_LIST,
                                                             ENABLE_SET_LIST,
                                                             GO_TO_SET_ENTRY,
                                                             MAKE_BANK,
                                                             KEEP_RECOVERY,
                                                             DISCARD_RECOVERED});
}  // namespace

bool waitsForFiles(unsigned int number) { return std::ranges::count(WAIT_FOR_FILES, number) > 0; }

void executeOrvCommand(OrvIF& orv, Message& message)
{
    const bool isOperation = std::ranges::count(COMMANDS, message.number, &Command<OrvIF>::number) > 0;
    if (isOperation || !executeSettingCommand(orv, message)) execute<OrvIF>(COMMANDS, orv, message);
}
}  // namespace Backend
