#pragma once

#include "backend/bindings/functions/FunctionFamilies.h"
#include "backend/bindings/functions/HelpId.h"

namespace Backend::FunctionManagement::Functions
{
/// The window did not make the change, so it is notified.
inline constexpr bool NOTIFY = true;

class ChangeProgram final : public SelectFunction<ChangeProgram>
{
public:
    static constexpr FunctionInfo info{"Change Program", "ChangeProgram", HelpId::changeProgram};
    static constexpr SelectFlags flags = SELECTS;
    using ChangeFunctionOf::ChangeFunctionOf;

    void execute() override { orv().changeProgram(selectType); }
};

class ChangeDefaultMidiOutput final : public SelectFunction<ChangeDefaultMidiOutput>
{
public:
    static constexpr FunctionInfo info{"Change Default Midi Output", "ChangeDefaultMidiOutput",
                                       HelpId::changeDefaultMidiOutput};
    static constexpr SelectFlags flags = SELECTS;
    using ChangeFunctionOf::ChangeFunctionOf;

    void execute() override { orv().changeDefaultMidiOutput(selectType); }
};

class ChangeMidiThru final : public ToggleFunction<ChangeMidiThru>
{
public:
    static constexpr FunctionInfo info{"Change Midi Thru", "ChangeMidiThru", HelpId::changeMidiThru};
    using ToggleFunction::ToggleFunction;

    void execute() override { orv().changeMidiThru(toggle, NOTIFY); }
};

class ChangeGlobalKeyboard final : public ToggleFunction<ChangeGlobalKeyboard>
{
public:
    static constexpr FunctionInfo info{"Change Global Keyboard", "ChangeGlobalKeyboard", HelpId::changeGlobalKeyboard};
    using ToggleFunction::ToggleFunction;

    void execute() override { orv().changeGlobalKeyboard(toggle, NOTIFY); }
};

class ChangeTempo final : public SelectFunction<ChangeTempo>
{
public:
    static constexpr FunctionInfo info{"Change Tempo", "ChangeTempo", HelpId::changeTempo};
    static constexpr SelectFlags flags = CHANGES_VALUE_ONLY;
    using ChangeFunctionOf::ChangeFunctionOf;

    void execute() override { orv().changeTempo(value, NOTIFY); }
};

class ResetOrv final : public ActionFunction<ResetOrv>
{
public:
    static constexpr FunctionInfo info{"Reset ORV", "ResetOrv", HelpId::resetOrv};
    using FunctionOf::FunctionOf;

    void execute() override { orv().resetOrv(); }
};

class TapTempo final : public ActionFunction<TapTempo>
{
public:
    static constexpr FunctionInfo info{"Tap Tempo", "TapTempo", HelpId::tapTempo};
    using FunctionOf::FunctionOf;

    void execute() override { orv().tapTempo(); }
};

class SelectZone final : public SelectFunction<SelectZone>
{
public:
    static constexpr FunctionInfo info{"Select Zone", "SelectZone", HelpId::selectZone};
    static constexpr SelectFlags flags = SELECTS;
    using ChangeFunctionOf::ChangeFunctionOf;

    void execute() override { orv().selectZone(selectType); }
};

class ChangeZoneTranspose final : public SelectFunction<ChangeZoneTranspose>
{
public:
    static constexpr FunctionInfo info{"Change Zone Transpose", "ChangeZoneTranspose", HelpId::changeZoneTranspose};
    static constexpr SelectFlags flags = CHANGES;
    using ChangeFunctionOf::ChangeFunctionOf;

    void execute() override { orv().changeZoneTranspose(selectType, value); }
};

}  // namespace Backend::FunctionManagement::Functions
