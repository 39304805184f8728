#pragma once

#include <ostream>
#include <utility>
#include <vector>

#include "backend/input/functions/Function.h"
#include "backend/input/values/ButtonFunction.h"
#include "backend/persistence/XmlElement.h"

namespace Backend
{
/// What a key of the computer or a button of a joystick does: entries that run in their order. The derived class says
/// which key or button it is, and names the element in which the entries stand.
class ButtonConfiguration
{
public:
    virtual ~ButtonConfiguration() = default;

    /// Writes the element of the derived class behind `indent` TABs, with `writeEntries` inside it.
    virtual void writeXml(std::ostream& out, int indent) const = 0;

    const std::vector<ButtonFunction>& getEntries() const { return entries; }
    void addEntry(ButtonFunction entry) { entries.push_back(std::move(entry)); }

protected:
    ButtonConfiguration() = default;
    ButtonConfiguration(const ButtonConfiguration&) = default;
    ButtonConfiguration(ButtonConfiguration&&) noexcept = default;
    ButtonConfiguration& operator=(const ButtonConfiguration&) = default;
    ButtonConfiguration& operator=(ButtonConfiguration&&) noexcept = default;

    /// One "Function" element for each entry, two levels deeper than the derived element at `indent`.
    void writeEntries(std::ostream& out, int indent) const;

    /// Adds an entry for each "Function" element inside `element`, also for an empty one. Where `createFunction` makes
    /// nothing of an element, the slot stays empty.
    void readEntries(const XmlElement& element, const FunctionManagement::FunctionFactory& createFunction);

private:
    std::vector<ButtonFunction> entries;
};
}  // namespace Backend
