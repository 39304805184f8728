#pragma once

#include <memory>
#include <ostream>
#include <string>
#include <string_view>

#include "api/OrvIF.h"
#include "backend/bindings/functions/Attributes.h"
#include "backend/bindings/functions/FunctionInfo.h"
#include "backend/bindings/functions/FunctionSettingsTypes.h"
#include "backend/model/Function.h"
#include "backend/model/PresetSections.h"

namespace Backend::FunctionManagement
{
/// The base of all functions. A concrete class, `Derived`, defines its `info` and `execute`; its family has the
/// parameters and lists them in `attributes`.
template <class Derived, class Settings>
class FunctionOf : public Function, public Settings
{
public:
    using Settings::accept;

    explicit FunctionOf(OrvIF& backend) : orvIF(backend) {}

    bool equals(const Function& other) const override
    {
        const auto* same = dynamic_cast<const Derived*>(&other);
        return same != nullptr && derived().hasSameParameters(*same);
    }
    std::unique_ptr<Function> clone() const override { return std::unique_ptr<Function>(new Derived(derived())); }
    std::string_view getType() const override { return Derived::info.typeName; }
    void accept(FunctionVisitor& visitor) override { visitor.visit(derived()); }
    void accept(typename Settings::Visitor& visitor) override { visitor.visit(derived()); }
    void writeXml(std::ostream& out, int indent) const override
    {
        startElement(out, indent, Derived::info.typeName);
        derived().writeParameters(out);
        endElement(out);
    }
    int getHelpId() const override { return Derived::info.helpId; }

    /// From the function's element.
    void readParameters(const XmlElement& element) { readAttributes(element, derived()); }
    void writeParameters(std::ostream& out) const { writeAttributes(out, derived()); }
    bool hasSameParameters(const Derived& other) const { return hasSameAttributes(derived(), other); }

    static auto attributes(auto&& use) { return use(); }

protected:
    OrvIF& orv() const { return orvIF; }

private:
    Derived& derived() { return static_cast<Derived&>(*this); }
    const Derived& derived() const { return static_cast<const Derived&>(*this); }

    OrvIF& orvIF;
};

template <class Derived>
using ActionFunction = FunctionOf<Derived, ActionSettingsType>;

/// Sets a switch to on, off, or the opposite of its state.
template <class Derived>
class ToggleFunction : public FunctionOf<Derived, OnOffToggleSettingsType>
{
public:
    using FunctionOf<Derived, OnOffToggleSettingsType>::FunctionOf;

    OnOffToggle getOnOffToggle() const override { return toggle; }
    void setOnOffToggle(OnOffToggle newToggle) override { toggle = newToggle; }

    static auto attributes(auto&& use) { return use(Attribute{"type", &ToggleFunction::toggle}); }

protected:
    OnOffToggle toggle{};
};

/// Loads a preset of `Derived::SECTION`.
template <class Derived>
class PresetFunction : public FunctionOf<Derived, LoadPresetSettingsType>
{
public:
    using FunctionOf<Derived, LoadPresetSettingsType>::FunctionOf;

    std::string getPreset() const override { return preset; }
    void setPreset(const std::string& name) override { preset = name; }
    void execute() override { this->orv().loadPreset(Derived::SECTION, preset); }

    static auto attributes(auto&& use) { return use(Attribute{"preset", &PresetFunction::preset}); }

protected:
    std::string preset;
};

inline constexpr RelativeFixedValue BLANK{.relative = true, .value = 0};

/// The value of a parameter that a picker starts with.
template <class Value>
constexpr Value startValue()
{
    return {};
}
template <>
constexpr RelativeFixedValue startValue()
{
    return BLANK;
}

/// Selects items of a list, or changes a setting of them. `Derived::flags` says which of the two, and so which
/// attributes there are.
template <class Derived, class Settings, class Value>
class ChangeFunctionOf : public FunctionOf<Derived, Settings>
{
public:
    explicit ChangeFunctionOf(OrvIF& backend) : FunctionOf<Derived, Settings>(backend)
    {
        if (!Derived::flags.allowUpDown) selectType.kind = SelectType::Kind::selected;
    }

    SelectType getSelectType() const override { return selectType; }
    void setSelectType(SelectType select) override
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

    static auto attributes(auto&& use)
    {
        constexpr Attribute select{"type", &ChangeFunctionOf::selectType};
        constexpr Attribute number{"value", &ChangeFunctionOf::value};
        if constexpr (!Derived::flags.hasValue)
            return use(select);
        else if constexpr (!Derived::flags.hasSelect)
            return use(number);
        else
            return use(select, number);
    }

protected:
    SelectType selectType{};
    Value value = startValue<Value>();
};

template <class Derived>
using SelectFunction = ChangeFunctionOf<Derived, SelectSettingsType, RelativeFixedValue>;
template <class Derived>
using BooleanFunction = ChangeFunctionOf<Derived, ChangeBooleanSettingsType, OnOffToggle>;
template <class Derived>
using NoteToggleFunction = ChangeFunctionOf<Derived, ChangeNoteToggleSettingsType, NoteToggle>;

/// Acts on controls of the grid. `Derived::start` is what a picker starts with, `Derived::flags` what can be selected.
template <class Derived>
class ControlFunctionOf : public FunctionOf<Derived, SelectControlSettingsType>
{
public:
    explicit ControlFunctionOf(OrvIF& backend) : FunctionOf<Derived, SelectControlSettingsType>(backend)
    {
        selectControlType.kind = Derived::start;
    }

    SelectControlType getSelectControlType() const override { return selectControlType; }
    void setSelectControlType(SelectControlType select) override { selectControlType = select; }
    RelativeFixedValue getValue() const override { return value; }
    void setValue(RelativeFixedValue newValue) override
    {
        if (hasValue()) value = newValue;
    }

    bool allowArrows() const override { return Derived::flags.allowArrows; }
    bool allowSelected() const override { return Derived::flags.allowSelected; }
    bool hasValue() const override { return Derived::flags.hasValue; }
    bool allowAll() const override { return Derived::flags.allowAll; }

    static auto attributes(auto&& use)
    {
        constexpr Attribute select{"type", &ControlFunctionOf::selectControlType};
        if constexpr (Derived::flags.hasValue)
            return use(select, Attribute{"value", &ControlFunctionOf::value});
        else
            return use(select);
    }

protected:
    SelectControlType selectControlType{};
    RelativeFixedValue value = BLANK;
};
}  // namespace Backend::FunctionManagement
