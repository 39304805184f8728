#pragma once

#include "backend/bindings/functions/FunctionFamilies.h"
#include "backend/bindings/functions/HelpId.h"

namespace Backend::FunctionManagement::Functions
{
class DataSelectLayer final : public SelectFunction<DataSelectLayer>
{
public:
    static constexpr FunctionInfo info{"Data Select Layer", "DataSelectLayer", HelpId::dataSelectLayer};
    static constexpr SelectFlags flags = SELECTS;
    using ChangeFunctionOf::ChangeFunctionOf;

    void execute() override { orv().selectLayer(selectType); }
};

class EditSelectLayer final : public SelectFunction<EditSelectLayer>
{
public:
    static constexpr FunctionInfo info{"Edit Select Layer", "EditSelectLayer", HelpId::editSelectLayer};
    static constexpr SelectFlags flags = SELECTS;
    using ChangeFunctionOf::ChangeFunctionOf;

    void execute() override { orv().editLayer(selectType); }
};

class ChangeLayerTranspose final : public SelectFunction<ChangeLayerTranspose>
{
public:
    static constexpr FunctionInfo info{"Change Layer Transpose", "ChangeLayerTranspose", HelpId::changeLayerTranspose};
    static constexpr SelectFlags flags = CHANGES;
    using ChangeFunctionOf::ChangeFunctionOf;

    void execute() override { orv().changeLayerTranspose(selectType, value); }
};

class ChangeLayerVelocity final : public SelectFunction<ChangeLayerVelocity>
{
public:
    static constexpr FunctionInfo info{"Change Layer Velocity", "ChangeLayerVelocity", HelpId::changeLayerVelocity};
    static constexpr SelectFlags flags = CHANGES;
    using ChangeFunctionOf::ChangeFunctionOf;

    void execute() override { orv().changeLayerVelocity(selectType, value); }
};

class ChangeLayerMute final : public BooleanFunction<ChangeLayerMute>
{
public:
    static constexpr FunctionInfo info{"Change Layer Mute", "ChangeLayerMute", HelpId::changeLayerMute};
    static constexpr SelectFlags flags = CHANGES;
    using ChangeFunctionOf::ChangeFunctionOf;

    void execute() override { orv().changeLayerMute(selectType, value); }
};

class ChangeLayerMono final : public BooleanFunction<ChangeLayerMono>
{
public:
    static constexpr FunctionInfo info{"Change Layer Mono", "ChangeLayerMono", HelpId::changeLayerMono};
    static constexpr SelectFlags flags = CHANGES;
    using ChangeFunctionOf::ChangeFunctionOf;

    void execute() override { orv().changeLayerMono(selectType, value); }
};

class ChangeLayerSolo final : public BooleanFunction<ChangeLayerSolo>
{
public:
    static constexpr FunctionInfo info{"Change Layer Solo", "ChangeLayerSolo", HelpId::changeLayerSolo};
    static constexpr SelectFlags flags = CHANGES;
    using ChangeFunctionOf::ChangeFunctionOf;

    void execute() override { orv().changeLayerSolo(selectType, value); }
};

class ChangeLayerNoteToggle final : public NoteToggleFunction<ChangeLayerNoteToggle>
{
public:
    static constexpr FunctionInfo info{"Change Layer Note Toggle", "ChangeLayerNoteToggle",
                                       HelpId::changeLayerNoteToggle};
    static constexpr SelectFlags flags = CHANGES;
    using ChangeFunctionOf::ChangeFunctionOf;

    void execute() override { orv().changeLayerNoteToggle(selectType, value); }
};

}  // namespace Backend::FunctionManagement::Functions
