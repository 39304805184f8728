#pragma once

#include "backend/bindings/functions/Functions.h"
#include "backend/bindings/translations/TranslationFamilies.h"

namespace Backend::MidiInput::TranslationManagement::Translations
{
namespace Functions = FunctionManagement::Functions;

/// The display name and help text of a function, with another type name.
template <class Like>
constexpr TranslationInfo renamed(std::string_view typeName)
{
    return {Like::info.displayName, typeName, Like::info.helpId};
}

/// Drops the event.
class DoNothing final : public TranslationOf<DoNothing, ActionSettingsType>
{
public:
    static constexpr TranslationInfo info{"Do Nothing", DO_NOTHING, HelpId::translateToNothing};

    Result getResult() const override { return Result::nothing; }
    void run(OrvIF&, const MidiEngine::OrvMidiMessage&) const {}
};

// --- screens

class ShowSystem final : public ToggleTranslation<ShowSystem, Functions::ShowSystem>
{
};

class ShowHelp final : public ToggleTranslation<ShowHelp, Functions::ShowHelp>
{
};

class ShowDisplay final : public ToggleTranslation<ShowDisplay, Functions::ShowDisplay>
{
};

class ShowOscillator final : public ToggleTranslation<ShowOscillator, Functions::ShowOscillator>
{
};

class ShowJoystickInput final : public ToggleTranslation<ShowJoystickInput, Functions::ShowJoystick>
{
public:
    static constexpr TranslationInfo info = renamed<Functions::ShowJoystick>("ShowJoystickInput");
};

class ShowMidiInput final : public ToggleTranslation<ShowMidiInput, Functions::ShowMidiInput>
{
};

class ShowComputerInput final : public ToggleTranslation<ShowComputerInput, Functions::ShowComputerInput>
{
};

class ShowControl final : public ToggleTranslation<ShowControl, Functions::ShowControl>
{
};

class ShowOutput final : public ToggleTranslation<ShowOutput, Functions::ShowOutput>
{
};

class ShowCc final : public ToggleTranslation<ShowCc, Functions::ShowCc>
{
public:
    static constexpr TranslationInfo info = renamed<Functions::ShowCc>("ShowCc");
};

class ShowZone final : public ToggleTranslation<ShowZone, Functions::ShowZone>
{
};

class ShowLayer final : public ToggleTranslation<ShowLayer, Functions::ShowLayer>
{
};

class ShowSaveDialog final : public ActionTranslation<ShowSaveDialog, Functions::ShowSaveDialog>
{
};

class ShowProgramMenu final : public ActionTranslation<ShowProgramMenu, Functions::ShowProgramMenu>
{
};

class ShowDefaultMidiOutMenu final
    : public ActionTranslation<ShowDefaultMidiOutMenu, Functions::ShowDefaultMidiOutputMenu>
{
public:
    static constexpr TranslationInfo info = renamed<Functions::ShowDefaultMidiOutputMenu>("ShowDefaultMidiOutMenu");
};

/// Moves the main window: a position taken from the event spans the whole screen, any other is in pixels.
class MoveWindowTranslation final : public TranslationOf<MoveWindowTranslation, MoveWindowSettingsType>
{
public:
    static constexpr TranslationInfo info = renamed<Functions::MoveWindowFunction>("MoveWindowTranslation");

    MidiTranslationValue getX() const override { return x; }
    void setX(MidiTranslationValue position) override { x = position; }
    MidiTranslationValue getY() const override { return y; }
    void setY(MidiTranslationValue position) override { y = position; }

    void run(OrvIF& orv, const MidiEngine::OrvMidiMessage& message) const;

    static auto attributes(auto&& use)
    {
        return use(Attribute{"x", &MoveWindowTranslation::x}, Attribute{"y", &MoveWindowTranslation::y});
    }

private:
    MidiTranslationValue x{};
    MidiTranslationValue y{};
};

// --- presets

class LoadOscillatorPreset final : public PresetTranslation<LoadOscillatorPreset, Functions::LoadOscillatorPreset>
{
};

class LoadJoystickInputPreset final
    : public PresetTranslation<LoadJoystickInputPreset, Functions::LoadJoystickInputPreset>
{
};

class LoadMidiInputPreset final : public PresetTranslation<LoadMidiInputPreset, Functions::LoadMidiInputPreset>
{
};

class LoadComputerInputPreset final
    : public PresetTranslation<LoadComputerInputPreset, Functions::LoadComputerInputPreset>
{
};

class LoadControlPreset final : public PresetTranslation<LoadControlPreset, Functions::LoadControlPreset>
{
};

class LoadLayerPreset final : public PresetTranslation<LoadLayerPreset, Functions::LoadLayerPreset>
{
};

// --- the backend

class ChangeProgram final : public SelectTranslation<ChangeProgram, Functions::ChangeProgram>
{
};

class ChangeDefaultMidiOutput final
    : public SelectTranslation<ChangeDefaultMidiOutput, Functions::ChangeDefaultMidiOutput>
{
};

class ChangeMidiThru final : public ToggleTranslation<ChangeMidiThru, Functions::ChangeMidiThru>
{
};

class ChangeGlobalKeyboard final : public ToggleTranslation<ChangeGlobalKeyboard, Functions::ChangeGlobalKeyboard>
{
};

class ChangeTempo final : public SelectTranslation<ChangeTempo, Functions::ChangeTempo>
{
};

class ResetOrv final : public ActionTranslation<ResetOrv, Functions::ResetOrv>
{
};

class TapTempo final : public ActionTranslation<TapTempo, Functions::TapTempo>
{
};

// --- oscillators

class DataSelectOscillator final : public SelectTranslation<DataSelectOscillator, Functions::DataSelectOsc>
{
public:
    static constexpr TranslationInfo info = renamed<Functions::DataSelectOsc>("DataSelectOscillator");
};

class ChangeOscPlaying final : public BooleanTranslation<ChangeOscPlaying, Functions::ChangeOscPlaying>
{
public:
    static constexpr TranslationInfo info{"Start Stop Oscillator", "ChangeOscPlaying", HelpId::changeOscPlaying};
};

/// A value taken from the event is the position of a knob, any other one is a speed.
class ChangeOscSpeed final : public SelectTranslation<ChangeOscSpeed, Functions::ChangeOscSpeed>
{
public:
    void run(OrvIF& orv, const MidiEngine::OrvMidiMessage& message) const
    {
        if (value.kind == MidiTranslationValue::Kind::specific) return SelectTranslation::run(orv, message);
        orv.setOscSpeedFromMidi(getSelectType().getSelectType(message), value.getValue(message).value);
    }
};

// --- controls

class SelectControl final : public ControlTranslation<SelectControl, Functions::SelectControl>
{
public:
    static constexpr ControlFlags flags{true, true, false, false};
};

class SetWidgetFocus final : public ControlTranslation<SetWidgetFocus, Functions::SetWidgetFocus>
{
};

class SendControlData final : public ControlTranslation<SendControlData, Functions::SendControlData>
{
};

class ChangeControl final : public ControlTranslation<ChangeControl, Functions::ChangeControl>
{
};

// --- zones and layers

inline constexpr SelectFlags CHANGES_BUT_ALL{true, true, false, true, true, false};

class SelectZone final : public SelectTranslation<SelectZone, Functions::SelectZone>
{
};

class ChangeZoneTranspose final : public SelectTranslation<ChangeZoneTranspose, Functions::ChangeZoneTranspose>
{
};

class DataSelectLayer final : public SelectTranslation<DataSelectLayer, Functions::DataSelectLayer>
{
};

class EditSelectLayer final : public SelectTranslation<EditSelectLayer, Functions::EditSelectLayer>
{
};

class ChangeLayerTranspose final : public SelectTranslation<ChangeLayerTranspose, Functions::ChangeLayerTranspose>
{
public:
    static constexpr SelectFlags flags = CHANGES_BUT_ALL;
};

class ChangeLayerVelocity final : public SelectTranslation<ChangeLayerVelocity, Functions::ChangeLayerVelocity>
{
public:
    static constexpr SelectFlags flags = CHANGES_BUT_ALL;
};

class ChangeLayerMute final : public BooleanTranslation<ChangeLayerMute, Functions::ChangeLayerMute>
{
};

class ChangeLayerMono final : public BooleanTranslation<ChangeLayerMono, Functions::ChangeLayerMono>
{
};

class ChangeLayerSolo final : public BooleanTranslation<ChangeLayerSolo, Functions::ChangeLayerSolo>
{
};

class ChangeLayerNoteToggle final
    : public NoteToggleTranslation<ChangeLayerNoteToggle, Functions::ChangeLayerNoteToggle>
{
};
}  // namespace Backend::MidiInput::TranslationManagement::Translations
