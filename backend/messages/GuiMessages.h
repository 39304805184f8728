#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "backend/messages/TypedMessage.h"
#include "backend/model/AxisConfiguration.h"
#include "backend/model/BankEdit.h"
#include "backend/model/ControlMap.h"
#include "backend/model/Edit.h"
#include "backend/model/JoystickButtonConfiguration.h"
#include "backend/model/JoystickElement.h"
#include "backend/model/KeyConfigurationMap.h"
#include "backend/model/LayerList.h"
#include "backend/model/Learned.h"
#include "backend/model/MidiEventConfigurationMap.h"
#include "backend/model/MidiPort.h"
#include "backend/model/Notice.h"
#include "backend/model/OscList.h"
#include "backend/model/PresetList.h"
#include "backend/model/Program.h"
#include "backend/model/Recovery.h"
#include "backend/model/Screen.h"
#include "backend/model/SetList.h"
#include "backend/model/WindowMove.h"
#include "backend/model/ZoneMap.h"
#include "backend/values/OnOffToggle.h"
#include "backend/values/SelectControlType.h"
#include "backend/values/SelectType.h"

namespace Backend
{
struct Bank;
class RegistrySettings;

namespace RetroRecord
{
struct SavedRecord;
using SaveReport = std::vector<SavedRecord>;
}  // namespace RetroRecord

/// The messages of the backend to the window, besides the changes of settings (`SettingMessages.h`). They contain
/// copies of lists and records.
namespace GuiMessage
{
/// The result of saving the record.
inline constexpr TypedMessage<RetroRecord::SaveReport> RETRO_RECORD_SAVED{32880, "RetroRecordSaved"};
/// 0 to 100 percent.
inline constexpr TypedMessage<int> RETRO_RECORD_FILL{32881, "RetroRecordFill"};

/// All settings.
inline constexpr TypedMessage<RegistrySettings> SETTINGS{33219, "Settings"};
inline constexpr TypedMessage<MidiEngine::MidiInputPorts> MIDI_INPUT_PORTS{33221, "MidiInputPorts"};
inline constexpr TypedMessage<MidiEngine::MidiOutputPorts> MIDI_OUTPUT_PORTS{33223, "MidiOutputPorts"};
inline constexpr TypedMessage<Bank> BANK{33240, "Bank"};
/// To a progress dialog: false if nothing was written.
inline constexpr TypedMessage<bool> OPERATION_DONE{33241, "OperationDone"};
/// To a progress dialog, in place of that: nothing was written, because another program has changed the file.
inline constexpr TypedMessage<> FILE_CHANGED{33310, "FileChanged"};
inline constexpr TypedMessage<> SHOW_SAVE_DIALOG{33242, "ShowSaveDialog"};
inline constexpr TypedMessage<> SHOW_PROGRAM_MENU{33243, "ShowProgramMenu"};
inline constexpr TypedMessage<> SHOW_DEFAULT_MIDI_OUTPUT_MENU{33244, "ShowDefaultMidiOutputMenu"};
inline constexpr TypedMessage<WindowMove> MOVE_WINDOW{33245, "MoveWindow"};
/// An event that is sent to the player.
inline constexpr TypedMessage<MidiEngine::OrvMidiMessage> MIDI_OUTPUT_EVENT{33248, "MidiOutputEvent"};
/// A hard reset was executed.
inline constexpr TypedMessage<> ORV_RESET{33253, "OrvReset"};
inline constexpr TypedMessage<Program> PROGRAM_NAME{33255, "ProgramName"};
/// True if the file has no such program.
inline constexpr TypedMessage<Program, bool> PROGRAM{33257, "Program"};
/// The output, -1 for none.
inline constexpr TypedMessage<int> DEFAULT_MIDI_OUTPUT{33258, "DefaultMidiOutput"};
inline constexpr TypedMessage<Screen, OnOffToggle::State> SHOW_SCREEN{33261, "ShowScreen"};
/// The index in PresetSections::ALL, and false if its folder could not be changed.
inline constexpr TypedMessage<std::uint32_t, bool, PresetList> PRESETS{33275, "Presets"};
/// True if the sequence presets have changed, false if one could not be written.
inline constexpr TypedMessage<bool> SEQUENCE_PRESETS{33276, "SequencePresets"};
/// An edit of the window, an undo or a redo was executed.
inline constexpr TypedMessage<EditDone> EDIT_DONE{33287, "EditDone"};
/// Whether the current program was edited since it was saved, and how many others were.
inline constexpr TypedMessage<bool, int> PROGRAM_EDITED{33288, "ProgramEdited"};
inline constexpr TypedMessage<Learned> LEARNED{33294, "Learned"};
/// The last event of each kind that inputs have received since they are watched, see `OrvIF::watchMidiInputs`.
inline constexpr TypedMessage<std::vector<MidiEngine::OrvMidiMessage>> RECEIVED_EVENTS{33295, "ReceivedEvents"};
inline constexpr TypedMessage<BankEditDone> BANK_EDIT_DONE{33297, "BankEditDone"};
/// The index in PresetSections::ALL, whether the section was edited since it was loaded from a preset or saved as one,
/// and its name; empty for none.
inline constexpr TypedMessage<std::uint32_t, bool, std::string> SECTION_PRESET{33298, "SectionPreset"};
/// The set list of the current bank.
inline constexpr TypedMessage<SetList> SET_LIST{33315, "SetList"};
inline constexpr TypedMessage<Notice, std::string> NOTICE{33316, "Notice"};
/// For each layer the step of its sequence that its arpeggio plays, -1 while it plays none; see
/// `OrvIF::sendSequenceSteps`.
inline constexpr TypedMessage<std::vector<int>> SEQUENCE_STEPS{33305, "SequenceSteps"};
/// At the start, with the path of the recovery file that it is about.
inline constexpr TypedMessage<RecoveryResult, std::string> RECOVERY{33325, "Recovery"};

/// Those that were replaced.
inline constexpr TypedMessage<std::vector<ComputerInput::KeyConfiguration>> KEY_CONFIGURATIONS{33469,
                                                                                               "KeyConfigurations"};
/// Whether a released key is looked up with its modifiers.
inline constexpr TypedMessage<bool, ComputerInput::KeyConfigurationMap> COMPUTER_INPUT{33470, "ComputerInput"};
/// The bindings of the keys have changed; the preset that they came from.
inline constexpr TypedMessage<std::string> COMPUTER_INPUT_CHANGED{33471, "ComputerInputChanged"};
/// A preset was loaded.
inline constexpr TypedMessage<> COMPUTER_INPUT_PRESET{33472, "ComputerInputPreset"};

/// Those that changed.
inline constexpr TypedMessage<std::vector<MidiInput::MidiEventConfiguration>> MIDI_EVENT_CONFIGURATIONS{
    33719, "MidiEventConfigurations"};
inline constexpr TypedMessage<MidiInput::MidiEventConfigurationMap> MIDI_INPUT{33720, "MidiInput"};

inline constexpr TypedMessage<Controls::ControlMap> CONTROLS{33969, "Controls"};
inline constexpr TypedMessage<Cell, std::int32_t> CONTROL_VALUE{33975, "ControlValue"};
inline constexpr TypedMessage<Cell, bool> CONTROL_SELECTED{33976, "ControlSelected"};
inline constexpr TypedMessage<SelectControlType> SET_WIDGET_FOCUS{33978, "SetWidgetFocus"};

inline constexpr TypedMessage<Layers::LayerList> LAYERS{34719, "Layers"};
inline constexpr TypedMessage<Layers::LayerId, bool> LAYER_SELECTED{34720, "LayerSelected"};
inline constexpr TypedMessage<Layers::LayerId, std::int32_t> LAYER_TRANSPOSE{34721, "LayerTranspose"};
inline constexpr TypedMessage<Layers::LayerId, std::int32_t> LAYER_VELOCITY{34722, "LayerVelocity"};
inline constexpr TypedMessage<Layers::LayerId, bool> LAYER_MUTE{34723, "LayerMute"};
inline constexpr TypedMessage<Layers::LayerId, bool> LAYER_MONO{34724, "LayerMono"};
inline constexpr TypedMessage<Layers::LayerId, bool> LAYER_SOLO{34725, "LayerSolo"};
inline constexpr TypedMessage<Layers::LayerId, NoteToggle::Mode> LAYER_NOTE_TOGGLE{34726, "LayerNoteToggle"};
/// Opens the dialog of a layer.
inline constexpr TypedMessage<SelectType> LAYER_EDIT{34727, "LayerEdit"};

inline constexpr TypedMessage<Zones::ZoneId, std::int32_t> ZONE_TRANSPOSE{34969, "ZoneTranspose"};
inline constexpr TypedMessage<Zones::ZoneMap> ZONES{34970, "Zones"};
inline constexpr TypedMessage<Zones::ZoneId, bool> ZONE_SELECTED{34971, "ZoneSelected"};

/// Those that were replaced.
inline constexpr TypedMessage<std::vector<Joystick::JoystickButtonConfiguration>> JOYSTICK_BUTTONS{35219,
                                                                                                   "JoystickButtons"};
/// The same for axes.
inline constexpr TypedMessage<std::vector<Joystick::AxisConfiguration>> JOYSTICK_AXES{35222, "JoystickAxes"};
inline constexpr TypedMessage<int, bool> JOYSTICK_ENABLED{35223, "JoystickEnabled"};
inline constexpr TypedMessage<Joystick::JoystickElement> JOYSTICK_BUTTON_DOWN{35224, "JoystickButtonDown"};
inline constexpr TypedMessage<Joystick::JoystickElement> JOYSTICK_BUTTON_UP{35225, "JoystickButtonUp"};
/// Joystick, axis and, from bit 16, the value; `min` and, from bit 16, `max`.
inline constexpr TypedMessage<std::uint32_t, std::int32_t> JOYSTICK_AXIS{35226, "JoystickAxis"};
/// Whether a joystick is plugged in, and what it calls itself.
inline constexpr TypedMessage<int, bool, std::string> JOYSTICK_DEVICE{35227, "JoystickDevice"};

inline constexpr TypedMessage<Oscillators::OscList> OSCILLATORS{35469, "Oscillators"};
inline constexpr TypedMessage<Oscillators::OscId, bool> OSC_SELECTED{35470, "OscSelected"};
inline constexpr TypedMessage<Oscillators::OscId, bool> OSC_PLAYING{35471, "OscPlaying"};
/// Pulses per cycle.
inline constexpr TypedMessage<Oscillators::OscId, std::int32_t> OSC_SPEED{35472, "OscSpeed"};
inline constexpr TypedMessage<Oscillators::OscId, TimeIntervalType::Kind> OSC_SPEED_MODE{35473, "OscSpeedMode"};
/// The present value.
inline constexpr TypedMessage<Oscillators::OscId, std::int32_t> OSC_VALUE{35475, "OscValue"};
}  // namespace GuiMessage
}  // namespace Backend
