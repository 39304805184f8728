#pragma once

#include "backend/bindings/functions/FunctionFamilies.h"
#include "backend/bindings/functions/HelpId.h"

namespace Backend::FunctionManagement::Functions
{
class DataSelectOsc final : public SelectFunction<DataSelectOsc>
{
public:
    static constexpr FunctionInfo info{"Data Select Oscillator", "DataSelectOsc", HelpId::dataSelectOsc};
    static constexpr SelectFlags flags = SELECTS;
    using ChangeFunctionOf::ChangeFunctionOf;

    void execute() override { orv().selectOsc(selectType); }
};

class ChangeOscPlaying final : public BooleanFunction<ChangeOscPlaying>
{
public:
    static constexpr FunctionInfo info{"Start/Stop Oscillator", "ChangeOscPlaying", HelpId::changeOscPlaying};
    static constexpr SelectFlags flags = CHANGES;
    using ChangeFunctionOf::ChangeFunctionOf;

    void execute() override { orv().changeOscPlaying(selectType, value); }
};

class ChangeOscSpeed final : public SelectFunction<ChangeOscSpeed>
{
public:
    static constexpr FunctionInfo info{"Change Oscillator Speed", "ChangeOscSpeed", HelpId::changeOscSpeed};
    static constexpr SelectFlags flags = CHANGES;
    using ChangeFunctionOf::ChangeFunctionOf;

    void execute() override { orv().changeOscSpeed(selectType, value); }
};

}  // namespace Backend::FunctionManagement::Functions
