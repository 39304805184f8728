#pragma once

#include <memory>
#include <ostream>
#include <string>
#include <string_view>

#include "api/OrvIF.h"
#include "backend/bindings/functions/Attributes.h"
#include "backend/bindings/translations/TranslationEnumerator.h"
#include "backend/bindings/translations/TranslationSettingsTypes.h"
#include "backend/model/Translation.h"

namespace Backend::MidiInput::TranslationManagement
{
/// The base of all translations. A concrete class, `Derived`, defines its `info`; its family has the parameters, lists
/// them in `attributes`, and executes the translation with `run(orv, message)`.
template <class Derived, class Settings>
class TranslationOf : public Translation, public Settings
{
public:
    using Settings::accept;

    std::unique_ptr<Translation> clone() const override { return std::unique_ptr<Translation>(new Derived(derived())); }
    std::string_view getType() const override { return Derived::info.typeName; }
    void writeXml(std::ostream& out, int indent) const override
    {
        startElement(out, indent, Derived::info.typeName);
        derived().writeParameters(out);
        endElement(out);
    }
    void accept(TranslationVisitor& visitor) override { visitor.visit(derived()); }
    void accept(typename Settings::Visitor& visitor) override { visitor.visit(derived()); }
    void execute(const MidiEngine::OrvMidiMessage& message) override
    {
        if (OrvIF* const backend = getOrv()) derived().run(*backend, message);
    }
    int getHelpId() const override { return Derived::info.helpId; }

    /// From the translation's element.
    void readParameters(const XmlElement& element) { readAttributes(element, derived()); }
    void writeParameters(std::ostream& out) const { writeAttributes(out, derived()); }

    static auto attributes(auto&& use) { return use(); }

private:
    Derived& derived() { return static_cast<Derived&>(*this); }
    const Derived& derived() const { return static_cast<const Derived&>(*this); }
};

// Families that execute a function, `Like`, with values from the event. Unless `Derived` has others, they have its
// names and flags.

template <class Derived, class Like>
class ActionTranslation : public TranslationOf<Derived, ActionSettingsType>
{
public:
    static constexpr TranslationInfo info = Like::info;

    void run(OrvIF& orv, const MidiEngine::OrvMidiMessage&) const { Like(orv).execute(); }
};

template <class Derived, class Like>
class ToggleTranslation : public TranslationOf<Derived, OnOffToggleSettingsType>
{
public:
    static constexpr TranslationInfo info = Like::info;

    OnOffToggle getOnOffToggle() const override { return toggle; }
    void setOnOffToggle(OnOffToggle newToggle) override { toggle = newToggle; }

    void run(OrvIF& orv, const MidiEngine::OrvMidiMessage&) const
    {
        Like function(orv);
        function.setOnOffToggle(toggle);
        function.execute();
    }

    static auto attributes(auto&& use) { return use(Attribute{"type", &ToggleTranslation::toggle}); }

private:
    OnOffToggle toggle{};
};

template <class Derived, class Like>
class PresetTranslation : public TranslationOf<Derived, LoadPresetSettingsType>
{
public:
    static constexpr TranslationInfo info = Like::info;

    std::string getPreset() const override { return preset; }
    void setPreset(const std::string& name) override { preset = name; }

    void run(OrvIF& orv, const MidiEngine::OrvMidiMessage&) const
    {
        Like function(orv);
        function.setPreset(preset);
        function.execute();
    }

    static auto attributes(auto&& use) { return use(Attribute{"preset", &PresetTranslation::preset}); }

private:
    std::string preset;
};

/// The selection: from the event, or fixed.
inline SelectType selectFor(const MidiTranslationValue& select, const MidiEngine::OrvMidiMessage& message)
{
    return select.getSelectType(message);
}
inline RelativeFixedValue valueFor(const MidiTranslationValue& value, const MidiEngine::OrvMidiMessage& message)
{
    return value.getValue(message);
}
inline SelectType selectFor(SelectType select, const MidiEngine::OrvMidiMessage&) { return select; }
inline OnOffToggle valueFor(OnOffToggle value, const MidiEngine::OrvMidiMessage&) { return value; }
inline NoteToggle valueFor(NoteToggle value, const MidiEngine::OrvMidiMessage&) { return value; }

/// The selection that a picker starts with: the event selects the item; a change applies to the selected items.
template <class Select>
constexpr Select startSelect(const SelectFlags& flags)
{
    return {flags.allowUpDown ? Select{}.kind : Select::Kind::selected};
}

/// Selects items of a list, or changes a setting of them. The flags say which of the two, and so which attributes there
/// are.
template <class Derived, class Like, class Settings, class Select, class Value>
class ChangeTranslationOf : public TranslationOf<Derived, Settings>
{
public:
    static constexpr TranslationInfo info = Like::info;
    static constexpr SelectFlags flags = Like::flags;

    Select getSelectType() const override { return selectType; }
    void setSelectType(Select select) override
    {
        if (hasSelect()) selectType = select;
    }
    Value getValue() const override { return value; }
    void setValue(Value newValue) override
    {
        if (hasValue()) value = newValue;
    }

    bool hasSelect() const override { return Derived::flags.hasSelect; }
    bool hasValue() const override { return Derived::flags.hasValue; }
    bool allowUpDown() const override { return Derived::flags.allowUpDown; }
    bool allowSelected() const override { return Derived::flags.allowSelected; }
    bool allowSpecific() const override { return Derived::flags.allowSpecific; }
    bool allowAll() const override { return Derived::flags.allowAll; }

    void run(OrvIF& orv, const MidiEngine::OrvMidiMessage& message) const
    {
        Like function(orv);
        function.setSelectType(selectFor(selectType, message));
        function.setValue(valueFor(value, message));
        function.execute();
    }

    static auto attributes(auto&& use)
    {
        constexpr Attribute select{"type", &ChangeTranslationOf::selectType};
        constexpr Attribute number{"value", &ChangeTranslationOf::value};
        if constexpr (!Derived::flags.hasValue)
            return use(select);
        else if constexpr (!Derived::flags.hasSelect)
            return use(number);
        else
            return use(select, number);
    }

protected:
    ChangeTranslationOf() : selectType(startSelect<Select>(Derived::flags)) {}

    Select selectType;
    Value value{};
};

template <class Derived, class Like>
using BooleanTranslation = ChangeTranslationOf<Derived, Like, ChangeBooleanSettingsType, SelectType, OnOffToggle>;
template <class Derived, class Like>
using NoteToggleTranslation = ChangeTranslationOf<Derived, Like, ChangeNoteToggleSettingsType, SelectType, NoteToggle>;

template <class Derived, class Like>
class SelectTranslation
    : public ChangeTranslationOf<Derived, Like, SelectSettingsType, MidiTranslationValue, MidiTranslationValue>
{
public:
    // The event can determine which item is selected, but not which one is changed.
    bool allowUseD1() const override { return this->hasSelect() && !this->hasValue(); }
    bool allowUseD2() const override { return allowUseD1(); }
    bool allowD1Relative() const override { return allowUseD1(); }
    bool allowD2Relative() const override { return allowUseD1(); }
};

/// Acts on controls of the grid. The value is written even if it is not used.
template <class Derived, class Like>
class ControlTranslation : public TranslationOf<Derived, SelectControlSettingsType>
{
public:
    static constexpr TranslationInfo info = Like::info;
    static constexpr ControlFlags flags = Like::flags;

    ControlTranslation() { selectControlType.kind = Like::start; }

    SelectControlType getSelectControlType() const override { return selectControlType; }
    void setSelectControlType(SelectControlType select) override { selectControlType = select; }
    MidiTranslationValue getValue() const override { return value; }
    void setValue(MidiTranslationValue newValue) override { value = newValue; }

    bool allowArrows() const override { return Derived::flags.allowArrows; }
    bool allowSelected() const override { return Derived::flags.allowSelected; }
    bool hasValue() const override { return Derived::flags.hasValue; }
    bool allowAll() const override { return Derived::flags.allowAll; }

    void run(OrvIF& orv, const MidiEngine::OrvMidiMessage& message) const
    {
        // A blank value means the default: the second data byte.
        const bool isBlank = value == MidiTranslationValue{MidiTranslationValue::Kind::specific, {true, 0}};
        Like function(orv);
        function.setSelectControlType(selectControlType);
        function.setValue((isBlank ? MidiTranslationValue{} : value).getValue(message));
        function.execute();
    }

    static auto attributes(auto&& use)
    {
        return use(Attribute{"type", &ControlTranslation::selectControlType},
                   Attribute{"value", &ControlTranslation::value});
    }

private:
    SelectControlType selectControlType{};
    MidiTranslationValue value{};
};
}  // namespace Backend::MidiInput::TranslationManagement
