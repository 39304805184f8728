#pragma once

#include "backend/bindings/functions/FunctionFamilies.h"
#include "backend/bindings/functions/HelpId.h"

namespace Backend::FunctionManagement::Functions
{
class SelectControl final : public ControlFunctionOf<SelectControl>
{
public:
    static constexpr FunctionInfo info{"Select Control", "SelectControl", HelpId::selectControl};
    static constexpr ControlFlags flags{true, false, false, false};
    static constexpr auto start = SelectControlType::Kind::right;
    using ControlFunctionOf::ControlFunctionOf;

    void execute() override { orv().selectControl(selectControlType); }
};

class SetWidgetFocus final : public ControlFunctionOf<SetWidgetFocus>
{
public:
    static constexpr FunctionInfo info{"Set Control Focus", "SetWidgetFocus", HelpId::setWidgetFocus};
    static constexpr ControlFlags flags{true, true, false, false};
    static constexpr auto start = SelectControlType::Kind::right;
    using ControlFunctionOf::ControlFunctionOf;

    void execute() override { orv().setWidgetFocus(selectControlType); }
};

class ChangeControl final : public ControlFunctionOf<ChangeControl>
{
public:
    static constexpr FunctionInfo info{"Change Control", "ChangeControl", HelpId::changeControl};
    static constexpr ControlFlags flags{false, true, true, false};
    static constexpr auto start = SelectControlType::Kind::selected;
    using ControlFunctionOf::ControlFunctionOf;

    void execute() override { orv().changeControl(selectControlType, value); }
};

class SendControlData final : public ControlFunctionOf<SendControlData>
{
public:
    static constexpr FunctionInfo info{"Send Control Data", "SendControlData", HelpId::sendControlData};
    static constexpr ControlFlags flags{false, true, false, true};
    static constexpr auto start = SelectControlType::Kind::selected;
    using ControlFunctionOf::ControlFunctionOf;

    void execute() override { orv().sendControlData(selectControlType); }
};

}  // namespace Backend::FunctionManagement::Functions
