#pragma once

#include "backend/bindings/functions/FunctionFamilies.h"
#include "backend/bindings/functions/HelpId.h"

namespace Backend::FunctionManagement::Functions
{
/// What an empty slot does: nothing.
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
    using PresetFunction::PresetFunction;

    void execute() override;
};

class LoadJoystickInputPreset final : public PresetFunction<LoadJoystickInputPreset>
{
public:
    static constexpr FunctionInfo info{"Load Joystick Input Preset", "LoadJoystickInputPreset",
                                       HelpId::loadJoystickInputPreset};
    using PresetFunction::PresetFunction;

    void execute() override;
};

class LoadMidiInputPreset final : public PresetFunction<LoadMidiInputPreset>
{
public:
    static constexpr FunctionInfo info{"Load Midi Input Preset", "LoadMidiInputPreset", HelpId::loadMidiInputPreset};
    using PresetFunction::PresetFunction;

    void execute() override;
};

class LoadComputerInputPreset final : public PresetFunction<LoadComputerInputPreset>
{
public:
    static constexpr FunctionInfo info{"Load Computer Input Preset", "LoadComputerInputPreset",
                                       HelpId::loadComputerInputPreset};
    using PresetFunction::PresetFunction;

    void execute() override;
};

class LoadControlPreset final : public PresetFunction<LoadControlPreset>
{
public:
    static constexpr FunctionInfo info{"Load Control Preset", "LoadControlPreset", HelpId::loadControlPreset};
    using PresetFunction::PresetFunction;

    void execute() override;
};

class LoadLayerPreset final : public PresetFunction<LoadLayerPreset>
{
public:
    static constexpr FunctionInfo info{"Load Layer Preset", "LoadLayerPreset", HelpId::loadLayerPreset};
    using PresetFunction::PresetFunction;

    void execute() override;
};

}  // namespace Backend::FunctionManagement::Functions
