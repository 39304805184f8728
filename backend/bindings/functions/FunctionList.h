#pragma once

#include "backend/bindings/functions/TypeList.h"

namespace Backend::FunctionManagement
{
class NoFunctionSettingsType;
class ActionSettingsType;
class OnOffToggleSettingsType;
class LoadPresetSettingsType;
class MoveWindowSettingsType;
class SelectSettingsType;
class ChangeBooleanSettingsType;
class ChangeNoteToggleSettingsType;
class SelectControlSettingsType;
class MidiSettingsType;

namespace Functions
{
class NoFunction;
class MidiNoteOn;
class MidiNoteOff;
class MidiKeyPressure;
class MidiControllerChange;
class MidiProgramChange;
class MidiChannelPressure;
class MidiPitchBend;
class MidiSongPosition;
class MidiSongSelect;
class MidiBusSelect;
class MidiTuneRequest;
class MidiTimingTick;
class MidiStartSong;
class MidiContinueSong;
class MidiStopSong;
class MidiActiveSensing;
class MidiSystemReset;
class ShowSystem;
class ShowHelp;
class ShowDisplay;
class ShowOscillator;
class ShowJoystick;
class ShowMidiInput;
class ShowComputerInput;
class ShowControl;
class ShowOutput;
class ShowCc;
class ShowZone;
class ShowLayer;
class ShowSaveDialog;
class MoveWindowFunction;
class LoadOscillatorPreset;
class LoadJoystickInputPreset;
class LoadMidiInputPreset;
class LoadComputerInputPreset;
class LoadControlPreset;
class LoadLayerPreset;
class ChangeProgram;
class ShowProgramMenu;
class ChangeDefaultMidiOutput;
class ShowDefaultMidiOutputMenu;
class ChangeMidiThru;
class ChangeGlobalKeyboard;
class ChangeTempo;
class ResetOrv;
class DataSelectOsc;
class ChangeOscPlaying;
class ChangeOscSpeed;
class SelectControl;
class SetWidgetFocus;
class ChangeControl;
class SendControlData;
class SelectZone;
class ChangeZoneTranspose;
class DataSelectLayer;
class EditSelectLayer;
class ChangeLayerTranspose;
class ChangeLayerVelocity;
class ChangeLayerMute;
class ChangeLayerMono;
class ChangeLayerSolo;
class ChangeLayerNoteToggle;
class MidiEndOfSysEx;
class TapTempo;
}  // namespace Functions

/// Every function with its family, in the order of the pickers. MidiEndOfSysEx is read and written but not offered.
/// Lists, visitors and factories are made from this list.
using FunctionRows = TypeList<
    CatalogueRow<NoFunctionSettingsType, Functions::NoFunction>, CatalogueRow<MidiSettingsType, Functions::MidiNoteOn>,
    CatalogueRow<MidiSettingsType, Functions::MidiNoteOff>, CatalogueRow<MidiSettingsType, Functions::MidiKeyPressure>,
    CatalogueRow<MidiSettingsType, Functions::MidiControllerChange>,
    CatalogueRow<MidiSettingsType, Functions::MidiProgramChange>,
    CatalogueRow<MidiSettingsType, Functions::MidiChannelPressure>,
    CatalogueRow<MidiSettingsType, Functions::MidiPitchBend>,
    CatalogueRow<MidiSettingsType, Functions::MidiSongPosition>,
    CatalogueRow<MidiSettingsType, Functions::MidiSongSelect>, CatalogueRow<MidiSettingsType, Functions::MidiBusSelect>,
    CatalogueRow<MidiSettingsType, Functions::MidiTuneRequest>,
    CatalogueRow<MidiSettingsType, Functions::MidiTimingTick>, CatalogueRow<MidiSettingsType, Functions::MidiStartSong>,
    CatalogueRow<MidiSettingsType, Functions::MidiContinueSong>,
    CatalogueRow<MidiSettingsType, Functions::MidiStopSong>,
    CatalogueRow<MidiSettingsType, Functions::MidiActiveSensing>,
    CatalogueRow<MidiSettingsType, Functions::MidiSystemReset>,
    CatalogueRow<OnOffToggleSettingsType, Functions::ShowSystem>,
    CatalogueRow<OnOffToggleSettingsType, Functions::ShowHelp>,
    CatalogueRow<OnOffToggleSettingsType, Functions::ShowDisplay>,
    CatalogueRow<OnOffToggleSettingsType, Functions::ShowOscillator>,
    CatalogueRow<OnOffToggleSettingsType, Functions::ShowJoystick>,
    CatalogueRow<OnOffToggleSettingsType, Functions::ShowMidiInput>,
    CatalogueRow<OnOffToggleSettingsType, Functions::ShowComputerInput>,
    CatalogueRow<OnOffToggleSettingsType, Functions::ShowControl>,
    CatalogueRow<OnOffToggleSettingsType, Functions::ShowOutput>,
    CatalogueRow<OnOffToggleSettingsType, Functions::ShowCc>,
    CatalogueRow<OnOffToggleSettingsType, Functions::ShowZone>,
    CatalogueRow<OnOffToggleSettingsType, Functions::ShowLayer>,
    CatalogueRow<ActionSettingsType, Functions::ShowSaveDialog>,
    CatalogueRow<MoveWindowSettingsType, Functions::MoveWindowFunction>,
    CatalogueRow<LoadPresetSettingsType, Functions::LoadOscillatorPreset>,
    CatalogueRow<LoadPresetSettingsType, Functions::LoadJoystickInputPreset>,
    CatalogueRow<LoadPresetSettingsType, Functions::LoadMidiInputPreset>,
    CatalogueRow<LoadPresetSettingsType, Functions::LoadComputerInputPreset>,
    CatalogueRow<LoadPresetSettingsType, Functions::LoadControlPreset>,
    CatalogueRow<LoadPresetSettingsType, Functions::LoadLayerPreset>,
    CatalogueRow<SelectSettingsType, Functions::ChangeProgram>,
    CatalogueRow<ActionSettingsType, Functions::ShowProgramMenu>,
    CatalogueRow<SelectSettingsType, Functions::ChangeDefaultMidiOutput>,
    CatalogueRow<ActionSettingsType, Functions::ShowDefaultMidiOutputMenu>,
    CatalogueRow<OnOffToggleSettingsType, Functions::ChangeMidiThru>,
    CatalogueRow<OnOffToggleSettingsType, Functions::ChangeGlobalKeyboard>,
    CatalogueRow<SelectSettingsType, Functions::ChangeTempo>, CatalogueRow<ActionSettingsType, Functions::ResetOrv>,
    CatalogueRow<SelectSettingsType, Functions::DataSelectOsc>,
    CatalogueRow<ChangeBooleanSettingsType, Functions::ChangeOscPlaying>,
    CatalogueRow<SelectSettingsType, Functions::ChangeOscSpeed>,
    CatalogueRow<SelectControlSettingsType, Functions::SelectControl>,
    CatalogueRow<SelectControlSettingsType, Functions::SetWidgetFocus>,
    CatalogueRow<SelectControlSettingsType, Functions::ChangeControl>,
    CatalogueRow<SelectControlSettingsType, Functions::SendControlData>,
    CatalogueRow<SelectSettingsType, Functions::SelectZone>,
    CatalogueRow<SelectSettingsType, Functions::ChangeZoneTranspose>,
    CatalogueRow<SelectSettingsType, Functions::DataSelectLayer>,
    CatalogueRow<SelectSettingsType, Functions::EditSelectLayer>,
    CatalogueRow<SelectSettingsType, Functions::ChangeLayerTranspose>,
    CatalogueRow<SelectSettingsType, Functions::ChangeLayerVelocity>,
    CatalogueRow<ChangeBooleanSettingsType, Functions::ChangeLayerMute>,
    CatalogueRow<ChangeBooleanSettingsType, Functions::ChangeLayerMono>,
    CatalogueRow<ChangeBooleanSettingsType, Functions::ChangeLayerSolo>,
    CatalogueRow<ChangeNoteToggleSettingsType, Functions::ChangeLayerNoteToggle>,
    CatalogueRow<MidiSettingsType, Functions::MidiEndOfSysEx>, CatalogueRow<ActionSettingsType, Functions::TapTempo>>;

using AllFunctions = ClassesOf<FunctionRows>;
static_assert(AllFunctions::size == 65);

/// Has an operation for each function class.
class FunctionVisitor : public VisitorOf<AllFunctions>
{
};

using AllFunctionSettings =
    TypeList<NoFunctionSettingsType, ActionSettingsType, OnOffToggleSettingsType, LoadPresetSettingsType,
             MoveWindowSettingsType, SelectSettingsType, ChangeBooleanSettingsType, ChangeNoteToggleSettingsType,
             SelectControlSettingsType, MidiSettingsType>;

/// Has an operation for each kind of settings.
class FunctionSettingsTypeVisitor : public VisitorOf<AllFunctionSettings>
{
};
}  // namespace Backend::FunctionManagement
