#pragma once

#include "backend/bindings/functions/TypeList.h"

namespace Backend::MidiInput::TranslationManagement
{
class ActionSettingsType;
class OnOffToggleSettingsType;
class LoadPresetSettingsType;
class MoveWindowSettingsType;
class SelectSettingsType;
class ChangeBooleanSettingsType;
class ChangeNoteToggleSettingsType;
class SelectControlSettingsType;
class MidiSettingsType;

namespace Translations
{
class Unchanged;
class DoNothing;
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
class ShowJoystickInput;
class ShowMidiInput;
class ShowComputerInput;
class ShowControl;
class ShowOutput;
class ShowCc;
class ShowZone;
class ShowLayer;
class ShowSaveDialog;
class MoveWindowTranslation;
class LoadOscillatorPreset;
class LoadJoystickInputPreset;
class LoadMidiInputPreset;
class LoadComputerInputPreset;
class LoadControlPreset;
class LoadLayerPreset;
class ChangeProgram;
class ShowProgramMenu;
class ChangeDefaultMidiOutput;
class ShowDefaultMidiOutMenu;
class ChangeMidiThru;
class ChangeGlobalKeyboard;
class ChangeTempo;
class ResetOrv;
class DataSelectOscillator;
class ChangeOscPlaying;
class ChangeOscSpeed;
class SelectControl;
class SetWidgetFocus;
class SendControlData;
class ChangeControl;
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
class TapTempo;
}  // namespace Translations

/// Every translation with its family, in the order of the pickers. Lists, visitors and factories are made from this
/// list.
using TranslationRows = TypeList<
    CatalogueRow<MidiSettingsType, Translations::Unchanged>, CatalogueRow<ActionSettingsType, Translations::DoNothing>,
    CatalogueRow<MidiSettingsType, Translations::MidiNoteOn>, CatalogueRow<MidiSettingsType, Translations::MidiNoteOff>,
    CatalogueRow<MidiSettingsType, Translations::MidiKeyPressure>,
    CatalogueRow<MidiSettingsType, Translations::MidiControllerChange>,
    CatalogueRow<MidiSettingsType, Translations::MidiProgramChange>,
    CatalogueRow<MidiSettingsType, Translations::MidiChannelPressure>,
    CatalogueRow<MidiSettingsType, Translations::MidiPitchBend>,
    CatalogueRow<MidiSettingsType, Translations::MidiSongPosition>,
    CatalogueRow<MidiSettingsType, Translations::MidiSongSelect>,
    CatalogueRow<MidiSettingsType, Translations::MidiBusSelect>,
    CatalogueRow<MidiSettingsType, Translations::MidiTuneRequest>,
    CatalogueRow<MidiSettingsType, Translations::MidiTimingTick>,
    CatalogueRow<MidiSettingsType, Translations::MidiStartSong>,
    CatalogueRow<MidiSettingsType, Translations::MidiContinueSong>,
    CatalogueRow<MidiSettingsType, Translations::MidiStopSong>,
    CatalogueRow<MidiSettingsType, Translations::MidiActiveSensing>,
    CatalogueRow<MidiSettingsType, Translations::MidiSystemReset>,
    CatalogueRow<OnOffToggleSettingsType, Translations::ShowSystem>,
    CatalogueRow<OnOffToggleSettingsType, Translations::ShowHelp>,
    CatalogueRow<OnOffToggleSettingsType, Translations::ShowDisplay>,
    CatalogueRow<OnOffToggleSettingsType, Translations::ShowOscillator>,
    CatalogueRow<OnOffToggleSettingsType, Translations::ShowJoystickInput>,
    CatalogueRow<OnOffToggleSettingsType, Translations::ShowMidiInput>,
    CatalogueRow<OnOffToggleSettingsType, Translations::ShowComputerInput>,
    CatalogueRow<OnOffToggleSettingsType, Translations::ShowControl>,
    CatalogueRow<OnOffToggleSettingsType, Translations::ShowOutput>,
    CatalogueRow<OnOffToggleSettingsType, Translations::ShowCc>,
    CatalogueRow<OnOffToggleSettingsType, Translations::ShowZone>,
    CatalogueRow<OnOffToggleSettingsType, Translations::ShowLayer>,
    CatalogueRow<ActionSettingsType, Translations::ShowSaveDialog>,
    CatalogueRow<MoveWindowSettingsType, Translations::MoveWindowTranslation>,
    CatalogueRow<LoadPresetSettingsType, Translations::LoadOscillatorPreset>,
    CatalogueRow<LoadPresetSettingsType, Translations::LoadJoystickInputPreset>,
    CatalogueRow<LoadPresetSettingsType, Translations::LoadMidiInputPreset>,
    CatalogueRow<LoadPresetSettingsType, Translations::LoadComputerInputPreset>,
    CatalogueRow<LoadPresetSettingsType, Translations::LoadControlPreset>,
    CatalogueRow<LoadPresetSettingsType, Translations::LoadLayerPreset>,
    CatalogueRow<SelectSettingsType, Translations::ChangeProgram>,
    CatalogueRow<ActionSettingsType, Translations::ShowProgramMenu>,
    CatalogueRow<SelectSettingsType, Translations::ChangeDefaultMidiOutput>,
    CatalogueRow<ActionSettingsType, Translations::ShowDefaultMidiOutMenu>,
    CatalogueRow<OnOffToggleSettingsType, Translations::ChangeMidiThru>,
    CatalogueRow<OnOffToggleSettingsType, Translations::ChangeGlobalKeyboard>,
    CatalogueRow<SelectSettingsType, Translations::ChangeTempo>,
    CatalogueRow<ActionSettingsType, Translations::ResetOrv>,
    CatalogueRow<SelectSettingsType, Translations::DataSelectOscillator>,
    CatalogueRow<ChangeBooleanSettingsType, Translations::ChangeOscPlaying>,
    CatalogueRow<SelectSettingsType, Translations::ChangeOscSpeed>,
    CatalogueRow<SelectControlSettingsType, Translations::SelectControl>,
    CatalogueRow<SelectControlSettingsType, Translations::SetWidgetFocus>,
    CatalogueRow<SelectControlSettingsType, Translations::SendControlData>,
    CatalogueRow<SelectControlSettingsType, Translations::ChangeControl>,
    CatalogueRow<SelectSettingsType, Translations::SelectZone>,
    CatalogueRow<SelectSettingsType, Translations::ChangeZoneTranspose>,
    CatalogueRow<SelectSettingsType, Translations::DataSelectLayer>,
    CatalogueRow<SelectSettingsType, Translations::EditSelectLayer>,
    CatalogueRow<SelectSettingsType, Translations::ChangeLayerTranspose>,
    CatalogueRow<SelectSettingsType, Translations::ChangeLayerVelocity>,
    CatalogueRow<ChangeBooleanSettingsType, Translations::ChangeLayerMute>,
    CatalogueRow<ChangeBooleanSettingsType, Translations::ChangeLayerMono>,
    CatalogueRow<ChangeBooleanSettingsType, Translations::ChangeLayerSolo>,
    CatalogueRow<ChangeNoteToggleSettingsType, Translations::ChangeLayerNoteToggle>,
    CatalogueRow<ActionSettingsType, Translations::TapTempo>>;

using AllTranslations = ClassesOf<TranslationRows>;
static_assert(AllTranslations::size == 65);

/// Has an operation for each translation class.
class TranslationVisitor : public VisitorOf<AllTranslations>
{
};
}  // namespace Backend::MidiInput::TranslationManagement
