#pragma once

#include <cstddef>
#include <memory>
#include <ostream>
#include <string_view>
#include <utility>
#include <vector>

#include "backend/model/ButtonFunction.h"
#include "backend/model/Function.h"
#include "backend/xml/XmlElement.h"

namespace Backend
{
/// What a key of the computer or a button of a joystick does: entries that run in their order. The derived class says
/// which key or button it is, and names the element in which the entries stand.
class ButtonConfiguration
{
public:
    virtual ~ButtonConfiguration() = default;

    /// Writes the element of the derived class after `indent` TABs, with `writeEntries` inside it.
    virtual void writeXml(std::ostream& out, int indent) const = 0;

    const std::vector<ButtonFunction>& getEntries() const { return entries; }
    void addEntry(ButtonFunction entry) { entries.push_back(std::move(entry)); }

    // By entry, from 0.

    /// Replaces the entry's function, or with the number after the last entry adds an entry of that function alone. A
    /// higher number changes nothing.
    void setDownFunction(std::unique_ptr<FunctionManagement::Function> function, std::size_t index);
    void setUpFunction(std::unique_ptr<FunctionManagement::Function> function, std::size_t index);

    /// The type name; NO_FUNCTION for an empty slot and outside the entries.
    std::string_view getDownFunctionType(std::size_t index) const;
    std::string_view getUpFunctionType(std::size_t index) const;

    /// Whether the entry does anything.
    bool isUsed(std::size_t index) const { return index < entries.size() && entries[index].isUsed(); }
    /// Whether no entry does anything.
    bool isEmpty() const;

    /// Calls `visit` with each down and up function there is.
    template <class Visitor>
    void forEachFunction(Visitor&& visit) const
    {
        for (const ButtonFunction& entry : entries)
            for (const auto* function : {&entry.downFunction, &entry.upFunction})
                if (*function) visit(**function);
    }

protected:
    ButtonConfiguration() = default;
    ButtonConfiguration(const ButtonConfiguration&) = default;
    ButtonConfiguration(ButtonConfiguration&&) noexcept = default;
    ButtonConfiguration& operator=(const ButtonConfiguration&) = default;
    ButtonConfiguration& operator=(ButtonConfiguration&&) noexcept = default;

    /// Equal entries in order, or both empty.
    bool hasSameEntries(const ButtonConfiguration& other) const;

    /// One "Function" element for each entry, two levels deeper than the derived element at `indent`.
    void writeEntries(std::ostream& out, int indent) const;

    /// Adds an entry for each "Function" element inside `element`, also for an empty one. Where `createFunction` makes
    /// nothing of an element, the slot stays empty.
    void readEntries(const XmlElement& element, const FunctionManagement::FunctionFactory& createFunction);

private:
    void setFunction(std::unique_ptr<FunctionManagement::Function> ButtonFunction::*slot, std::size_t index,
                     std::unique_ptr<FunctionManagement::Function> function);

    std::vector<ButtonFunction> entries;
};
}  // namespace Backend
