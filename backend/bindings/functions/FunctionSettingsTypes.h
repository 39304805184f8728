#pragma once

#include <cstdint>
#include <string>

#include "backend/bindings/functions/FunctionList.h"
#include "backend/bindings/functions/SelectFlags.h"
#include "backend/values/MidiMessage.h"
#include "backend/values/NoteToggle.h"
#include "backend/values/OnOffToggle.h"
#include "backend/values/RelativeFixedValue.h"
#include "backend/values/SelectControlType.h"
#include "backend/values/SelectType.h"

namespace Backend::FunctionManagement
{
/// The parameters of a function as an editor sees them, without the function's class.
class FunctionSettingsType
{
public:
    virtual ~FunctionSettingsType() = default;

    /// Calls the visitor's operation for this kind of settings.
    virtual void accept(FunctionSettingsTypeVisitor& visitor) = 0;

protected:
    FunctionSettingsType() = default;
    FunctionSettingsType(const FunctionSettingsType&) = default;
    FunctionSettingsType& operator=(const FunctionSettingsType&) = default;
};

/// A kind of settings, which can also show the function's class to a visitor of its own.
template <class Self>
class FunctionSettingsOf : public FunctionSettingsType
{
public:
    class Visitor : public VisitorOf<FamilyOf<FunctionRows, Self>>
    {
    };

    void accept(FunctionSettingsTypeVisitor& visitor) final { visitor.visit(static_cast<Self&>(*this)); }
    virtual void accept(Visitor& visitor) = 0;
};

class NoFunctionSettingsType : public FunctionSettingsOf<NoFunctionSettingsType>
{
};

/// For a function without parameters.
class ActionSettingsType : public FunctionSettingsOf<ActionSettingsType>
{
};

class OnOffToggleSettingsType : public FunctionSettingsOf<OnOffToggleSettingsType>
{
public:
    virtual OnOffToggle getOnOffToggle() const = 0;
    virtual void setOnOffToggle(OnOffToggle toggle) = 0;
};

class LoadPresetSettingsType : public FunctionSettingsOf<LoadPresetSettingsType>
{
public:
    /// The name of the preset.
    virtual std::string getPreset() const = 0;
    virtual void setPreset(const std::string& name) = 0;
};

class MoveWindowSettingsType : public FunctionSettingsOf<MoveWindowSettingsType>
{
public:
    virtual RelativeFixedValue getX() const = 0;
    virtual void setX(RelativeFixedValue position) = 0;
    virtual RelativeFixedValue getY() const = 0;
    virtual void setY(RelativeFixedValue position) = 0;
};

/// For a function that selects items of a list or changes a setting of them. If it has no selection or no value, as the
/// flags say, the getter returns the default and the setter does nothing.
template <class Self, class Value>
class ChangeSettingsOf : public FunctionSettingsOf<Self>
{
public:
    virtual SelectType getSelectType() const = 0;
    virtual void setSelectType(SelectType select) = 0;
    virtual Value getValue() const = 0;
    virtual void setValue(Value newValue) = 0;

    virtual bool hasSelect() const = 0;
    virtual bool hasValue() const = 0;
    virtual bool allowUpDown() const = 0;
    virtual bool allowSelected() const = 0;
    virtual bool allowSpecific() const = 0;
    virtual bool allowAll() const = 0;
};

class SelectSettingsType : public ChangeSettingsOf<SelectSettingsType, RelativeFixedValue>
{
};
class ChangeBooleanSettingsType : public ChangeSettingsOf<ChangeBooleanSettingsType, OnOffToggle>
{
};
class ChangeNoteToggleSettingsType : public ChangeSettingsOf<ChangeNoteToggleSettingsType, NoteToggle>
{
};

class SelectControlSettingsType : public FunctionSettingsOf<SelectControlSettingsType>
{
public:
    virtual SelectControlType getSelectControlType() const = 0;
    virtual void setSelectControlType(SelectControlType select) = 0;
    /// Blank, and the setter does nothing, if there is no value.
    virtual RelativeFixedValue getValue() const = 0;
    virtual void setValue(RelativeFixedValue newValue) = 0;

    virtual bool allowArrows() const = 0;
    virtual bool allowSelected() const = 0;
    virtual bool hasValue() const = 0;
    virtual bool allowAll() const = 0;
};

/// For a function that plays a MIDI event. A part that the event does not have is -1 for zone, output and channel and 0
/// for the data, and its setter does nothing. Values are stored as signed bytes; the first data value of pitch bend and
/// song position has 14 bits, and they have no second.
class MidiSettingsType : public FunctionSettingsOf<MidiSettingsType>
{
public:
    virtual MidiEngine::MessageType getStatus() const = 0;
    virtual std::int8_t getZone() const = 0;
    virtual void setZone(int number) = 0;
    virtual std::int8_t getOutput() const = 0;
    virtual void setOutput(int port) = 0;
    virtual int getChannel() const = 0;
    virtual void setChannel(int number) = 0;
    virtual int getD1() const = 0;
    virtual void setD1(int value) = 0;
    virtual int getD2() const = 0;
    virtual void setD2(int value) = 0;
};
}  // namespace Backend::FunctionManagement
