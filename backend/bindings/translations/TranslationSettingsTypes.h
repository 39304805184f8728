#pragma once

#include <cstdint>
#include <string>

#include "backend/bindings/functions/SelectFlags.h"
#include "backend/bindings/translations/TranslationList.h"
#include "backend/model/ChannelTranslation.h"
#include "backend/values/MidiTranslationValue.h"
#include "backend/values/NoteToggle.h"
#include "backend/values/OnOffToggle.h"
#include "backend/values/SelectControlType.h"
#include "backend/values/SelectType.h"

namespace Backend::MidiInput::TranslationManagement
{
/// The parameters of a translation as an editor sees them, without the translation's class, which is shown to the
/// visitor of its family. The families are those of the functions; numbers may come from the event.
template <class Self>
class TranslationSettingsOf
{
public:
    class Visitor : public VisitorOf<FamilyOf<TranslationRows, Self>>
    {
    };

    virtual ~TranslationSettingsOf() = default;
    virtual void accept(Visitor& visitor) = 0;

protected:
    TranslationSettingsOf() = default;
    TranslationSettingsOf(const TranslationSettingsOf&) = default;
    TranslationSettingsOf& operator=(const TranslationSettingsOf&) = default;
};

/// For a translation without parameters.
class ActionSettingsType : public TranslationSettingsOf<ActionSettingsType>
{
};

class OnOffToggleSettingsType : public TranslationSettingsOf<OnOffToggleSettingsType>
{
public:
    virtual OnOffToggle getOnOffToggle() const = 0;
    virtual void setOnOffToggle(OnOffToggle toggle) = 0;
};

class LoadPresetSettingsType : public TranslationSettingsOf<LoadPresetSettingsType>
{
public:
    /// The name of the preset.
    virtual std::string getPreset() const = 0;
    virtual void setPreset(const std::string& name) = 0;
};

class MoveWindowSettingsType : public TranslationSettingsOf<MoveWindowSettingsType>
{
public:
    virtual MidiTranslationValue getX() const = 0;
    virtual void setX(MidiTranslationValue position) = 0;
    virtual MidiTranslationValue getY() const = 0;
    virtual void setY(MidiTranslationValue position) = 0;
};

/// For a translation that selects items of a list or changes a setting of them. If it has no selection or no value, as
/// the flags say, the getter returns the default and the setter does nothing.
template <class Self, class Select, class Value>
class ChangeSettingsOf : public TranslationSettingsOf<Self>
{
public:
    virtual Select getSelectType() const = 0;
    virtual void setSelectType(Select select) = 0;
    virtual Value getValue() const = 0;
    virtual void setValue(Value newValue) = 0;

    virtual bool hasSelect() const = 0;
    virtual bool hasValue() const = 0;
    virtual bool allowUpDown() const = 0;
    virtual bool allowSelected() const = 0;
    virtual bool allowSpecific() const = 0;
    virtual bool allowAll() const = 0;
};

class SelectSettingsType : public ChangeSettingsOf<SelectSettingsType, MidiTranslationValue, MidiTranslationValue>
{
public:
    virtual bool allowUseD1() const = 0;
    virtual bool allowUseD2() const = 0;
    virtual bool allowD1Relative() const = 0;
    virtual bool allowD2Relative() const = 0;
};
class ChangeBooleanSettingsType : public ChangeSettingsOf<ChangeBooleanSettingsType, SelectType, OnOffToggle>
{
};
class ChangeNoteToggleSettingsType : public ChangeSettingsOf<ChangeNoteToggleSettingsType, SelectType, NoteToggle>
{
};

class SelectControlSettingsType : public TranslationSettingsOf<SelectControlSettingsType>
{
public:
    virtual SelectControlType getSelectControlType() const = 0;
    virtual void setSelectControlType(SelectControlType select) = 0;
    virtual MidiTranslationValue getValue() const = 0;
    virtual void setValue(MidiTranslationValue newValue) = 0;

    virtual bool allowArrows() const = 0;
    virtual bool allowSelected() const = 0;
    virtual bool hasValue() const = 0;
    virtual bool allowAll() const = 0;
};

/// For a translation that plays a MIDI event.
class MidiSettingsType : public TranslationSettingsOf<MidiSettingsType>
{
public:
    virtual std::int8_t getZone() const = 0;
    virtual void setZone(int number) = 0;
    /// -1 for the output of the event.
    virtual std::int8_t getOutput() const = 0;
    virtual void setOutput(int port) = 0;
    virtual ChannelTranslation getChannel() const = 0;
    virtual void setChannel(ChannelTranslation channel) = 0;
    virtual MidiTranslationValue getD1() const = 0;
    virtual void setD1(MidiTranslationValue value) = 0;
    virtual MidiTranslationValue getD2() const = 0;
    virtual void setD2(MidiTranslationValue value) = 0;
};
}  // namespace Backend::MidiInput::TranslationManagement
