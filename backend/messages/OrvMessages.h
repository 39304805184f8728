#pragma once

#include <cstdint>
#include <string>

#include "backend/messages/TypedMessage.h"
#include "backend/model/Learned.h"
#include "backend/model/MidiPort.h"
#include "backend/model/ScreenState.h"
#include "backend/values/OnOffToggle.h"
#include "backend/values/RelativeFixedValue.h"
#include "backend/values/SelectType.h"
#include "platform/WindowHandle.h"

namespace Gui
{
class OrvGuiIF;
}

namespace Backend
{
struct BankEdit;
enum class NewBank;
struct Edit;
struct HostStart;
struct HostState;
struct RecoveryPlan;
struct SetListEdit;
enum class SetListWrite;

/// The commands of the backend, which execute the operations of `OrvIF` of the same names. The commands that change a
/// setting are in `SettingMessages.h`.
namespace OrvMessage
{
inline constexpr MessageRange RANGE{33218, 33359};

inline constexpr TypedRequest<std::string> GET_PROGRAM_AS_STRING{{33218, "GetProgramAsString"}};
inline constexpr TypedMessage<> INITIALIZE{33219, "Initialize"};
inline constexpr TypedMessage<> END{33220, "End"};
inline constexpr TypedMessage<MidiEngine::MidiInputPorts> SEND_MIDI_INPUT_PORTS{33221, "SendSetMidiInputPorts"};
inline constexpr TypedMessage<MidiEngine::MidiInputPorts> SET_MIDI_INPUT_PORTS{33222, "SetMidiInputPorts"};
inline constexpr TypedMessage<MidiEngine::MidiOutputPorts> SEND_MIDI_OUTPUT_PORTS{33223, "SendSetMidiOutputPorts"};
inline constexpr TypedMessage<MidiEngine::MidiOutputPorts> SET_MIDI_OUTPUT_PORTS{33224, "SetMidiOutputPorts"};
inline constexpr TypedMessage<> END_INITIALIZE{33225, "EndInitialize"};
inline constexpr TypedRequest<Gui::OrvGuiIF*, bool> CREATE_ORV_GUI{{33226, "CreateOrvGui"}};
inline constexpr TypedMessage<> REMOVE_GUI_WINDOW_HANDLE{33228, "RemoveGuiWindowHandle"};
inline constexpr TypedMessage<> REFRESH_GUI{33237, "RefreshGui"};
inline constexpr TypedMessage<std::string> EXECUTE_FUNCTION{33238, "ExecuteFunction"};
inline constexpr TypedMessage<std::string> LOAD_PROGRAM{33239, "LoadProgram"};
inline constexpr TypedMessage<std::string> LOAD_BANK{33240, "LoadBank"};
inline constexpr TypedMessage<std::string, std::string, WindowHandle> IMPORT_VERSION2_BANK{33241, "ImportVersion2Bank"};
inline constexpr TypedMessage<std::string, std::string, WindowHandle> IMPORT_VERSION2_PROGRAM{33242,
                                                                                              "ImportVersion2Program"};
inline constexpr TypedMessage<std::string, std::string, WindowHandle> IMPORT_VERSION2_PRESET{33243,
                                                                                             "ImportVersion2Preset"};
inline constexpr TypedMessage<int, WindowHandle> SAVE_TO_CURRENT_BANK{33244, "SaveToCurrentBank"};
inline constexpr TypedMessage<std::string, WindowHandle> SAVE_TO_BANK{33245, "SaveToBank"};
inline constexpr TypedMessage<std::string, WindowHandle> SAVE_TO_PROGRAM{33246, "SaveToProgram"};
inline constexpr EventMessage PLAY_MIDI{{33248, "PlayMidiViaParam"}, {33247, "PlayMidiViaAlloc"}};
inline constexpr TypedMessage<int, bool> ENABLE_MIDI_INPUT{33249, "EnableMidiInput"};
inline constexpr TypedMessage<int, bool> ENABLE_MIDI_OUTPUT{33250, "EnableMidiOutput"};
inline constexpr EventMessage PROCESS_MIDI_INPUT_EVENT{{33251, "ProcessMidiInputEventViaParam"},
                                                       {33252, "ProcessMidiInputEventViaAlloc"}};
inline constexpr TypedMessage<> RESET_ORV{33253, "ResetOrv"};
inline constexpr TypedMessage<int, WindowHandle> CHANGE_BANK_SIZE{33254, "ChangeBankSize"};
inline constexpr TypedMessage<std::string> CHANGE_PROGRAM_NAME{33255, "ChangeProgramName"};
inline constexpr TypedMessage<std::string, std::string> ADD_SEQUENCE_PRESET{33256, "AddSequencePreset"};
inline constexpr TypedMessage<SelectType> CHANGE_PROGRAM{33257, "ChangeProgram"};
inline constexpr TypedMessage<SelectType> CHANGE_DEFAULT_MIDI_OUTPUT{33258, "ChangeDefaultMidiOutput"};
inline constexpr TypedMessage<ScreenState> SET_SCREEN_STATE{33259, "SetScreenState"};
inline constexpr TypedMessage<> TOGGLE_SYSTEM_PANEL{33261, "ToggleSystemPanel"};
inline constexpr TypedMessage<RelativeFixedValue, bool> CHANGE_TEMPO{33264, "ChangeTempo"};
inline constexpr TypedMessage<OnOffToggle, bool> CHANGE_MIDI_THRU{33265, "ChangeMidiThru"};
inline constexpr TypedMessage<OnOffToggle, bool> CHANGE_GLOBAL_KEYBOARD{33266, "ChangeGlobalKeyboard"};
inline constexpr TypedMessage<int, bool> SET_TEMPO_SOURCE{33267, "SetTempoSource"};
inline constexpr TypedMessage<std::string, int> LOAD_PROGRAM_FROM_STRING{33273, "LoadProgramFromString"};
inline constexpr TypedRequest<HostState> SAVE_STATE{{33274, "SaveState"}};
inline constexpr TypedMessage<std::string> DELETE_SEQUENCE_PRESET{33275, "DeleteSequencePreset"};
inline constexpr TypedMessage<std::string> SAVE_RETRO_RECORD{33276, "SaveRetroRecord"};
inline constexpr TypedRequest<HostStart> GET_HOST_START{{33278, "GetHostStart"}};
inline constexpr TypedMessage<int> SET_PROGRAM_NUMBER{33279, "SetProgramNumber"};
inline constexpr TypedMessage<int> RELEASE_MIDI_INPUT{33280, "ReleaseMidiInput"};
inline constexpr TypedMessage<int> MIDI_INPUT_EVENT_LOST{33281, "MidiInputEventLost"};
/// From the backend itself, behind what an event of that input made.
inline constexpr TypedMessage<int> SETTLE_MIDI_INPUT{33282, "SettleMidiInput"};
inline constexpr TypedMessage<> TAP_TEMPO{33284, "TapTempo"};
inline constexpr TypedMessage<Edit> EDIT{33287, "Edit"};
/// Undo and redo with the number by which they are acknowledged.
inline constexpr TypedMessage<std::uint32_t> UNDO{33288, "Undo"};
inline constexpr TypedMessage<std::uint32_t> REDO{33289, "Redo"};
inline constexpr TypedMessage<bool> KEEP_DRAFTS{33290, "KeepDrafts"};
inline constexpr TypedMessage<> DISCARD_EDITS{33291, "DiscardEdits"};
/// The kinds, none to end it, and the number by which it is reported.
inline constexpr TypedMessage<LearnKinds, std::uint32_t> LEARN{33294, "Learn"};
inline constexpr TypedMessage<bool> WATCH_MIDI_INPUTS{33295, "WatchMidiInputs"};
inline constexpr TypedMessage<BankEdit> EDIT_BANK{33297, "EditBank"};
inline constexpr TypedMessage<std::string> UNDO_BANK{33298, "UndoBank"};
inline constexpr TypedMessage<std::string> REDO_BANK{33299, "RedoBank"};
inline constexpr TypedMessage<SetListEdit> EDIT_SET_LIST{33315, "EditSetList"};
inline constexpr TypedMessage<> UNDO_SET_LIST{33316, "UndoSetList"};
inline constexpr TypedMessage<> REDO_SET_LIST{33317, "RedoSetList"};
inline constexpr TypedMessage<bool> ENABLE_SET_LIST{33318, "EnableSetList"};
inline constexpr TypedMessage<int> GO_TO_SET_ENTRY{33319, "GoToSetEntry"};
inline constexpr TypedMessage<bool> KEEP_SET_POSITION{33320, "KeepSetPosition"};
/// From the files thread: the result, and the path of the file.
inline constexpr TypedMessage<SetListWrite, std::string> SET_LIST_WRITTEN{33323, "SetListWritten"};
inline constexpr TypedMessage<bool> WATCH_NOTES{33300, "WatchNotes"};
inline constexpr TypedMessage<std::string, std::string> RENAME_SEQUENCE_PRESET{33305, "RenameSequencePreset"};
inline constexpr TypedMessage<std::string, NewBank, WindowHandle> MAKE_BANK{33310, "MakeBank"};
inline constexpr TypedMessage<bool> CONTINUE_LAST{33311, "ContinueLast"};
inline constexpr TypedMessage<RecoveryPlan> KEEP_RECOVERY{33325, "KeepRecovery"};
inline constexpr TypedMessage<> DISCARD_RECOVERED{33326, "DiscardRecovered"};
/// From the thread of the recovery file: it waits for what is not saved.
inline constexpr TypedMessage<> WRITE_RECOVERY{33327, "WriteRecovery"};
/// From the files thread: its work is finished.
inline constexpr TypedMessage<> FILES_DONE{33277, "FilesDone"};
}  // namespace OrvMessage
}  // namespace Backend
