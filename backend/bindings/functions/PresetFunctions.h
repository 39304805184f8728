#pragma once

#include "backend/bindings/functions/FunctionFamilies.h"
#include "backend/bindings/functions/HelpId.h"

namespace Backend::FunctionManagement::Functions
{
/// The function of an empty slot, which does nothing.
class NoFunction final : public FunctionOf<NoFunction, NoFunctionSettingsType>
{
public:
    static constexpr FunctionInfo info{"None", NO_FUNCTION, HelpId::noFunction};
    using FunctionOf::FunctionOf;

    void execute() override {}
};

class LoadOscillatorPreset final : public PresetFunction<LoadOscillatorPreset>
{
public:
    static constexpr FunctionInfo info{"Load Oscillator Preset", "LoadOscillatorPreset", HelpId::loadOscillatorPreset};
    static constexpr PresetSection SECTION = PresetSections::OSCILLATORS;
    using PresetFunction::PresetFunction;
};

class LoadJoystickInputPreset final : public PresetFunction<LoadJoystickInputPreset>
{
public:
    static constexpr FunctionInfo info{"Load Joystick Input Preset", "LoadJoystickInputPreset",
                                       HelpId::loadJoystickInputPreset};
    static constexpr PresetSection SECTION = PresetSections::JOYSTICK;
    using PresetFunction::PresetFunction;
};

class LoadMidiInputPreset final : public PresetFunction<LoadMidiInputPreset>
{
public:
    static constexpr FunctionInfo info{"Load Midi Input Preset", "LoadMidiInputPreset", HelpId::loadMidiInputPreset};
    static constexpr PresetSection SECTION = PresetSections::MIDI_INPUT;
    using PresetFunction::PresetFunction;
};

class LoadComputerInputPreset final : public PresetFunction<LoadComputerInputPreset>
{
public:
    static constexpr FunctionInfo info{"Load Computer Input Preset", "LoadComputerInputPreset",
                                       HelpId::loadComputerInputPreset};
    static constexpr PresetSection SECTION = PresetSections::COMPUTER_INPUT;
    using PresetFunction::PresetFunction;
};

class LoadControlPreset final : public PresetFunction<LoadControlPreset>
{
public:
    static constexpr FunctionInfo info{"Load Control Preset", "LoadControlPreset", HelpId::loadControlPreset};
    static constexpr PresetSection SECTION = PresetSections::CONTROLS;
    using PresetFunction::PresetFunction;
};

class LoadLayerPreset final : public PresetFunction<LoadLayerPreset>
{
public:
    static constexpr FunctionInfo info{"Load Layer Preset", "LoadLayerPreset", HelpId::loadLayerPreset};
    static constexpr PresetSection SECTION = PresetSections::LAYERS;
    using PresetFunction::PresetFunction;
};

}  // namespace Backend::FunctionManagement::Functions
