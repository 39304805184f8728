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
/// The binding of a key of the computer or a button of a joystick: entries that are executed in their order. The
/// derived class has the id of the key or button and the name of its element in files.
class ButtonConfiguration
{
public:
    virtual ~ButtonConfiguration() = default;

    /// Writes the element of the derived class, indented by `indent` TABs, with `writeEntries` inside it.
    virtual void writeXml(std::ostream& out, int indent) const = 0;

    const std::vector<ButtonFunction>& getEntries() const { return entries; }
    std::vector<ButtonFunction>& getEntries() { return entries; }
    void addEntry(ButtonFunction entry) { entries.push_back(std::move(entry)); }

    // By the index of the entry, from 0

    /// Replaces the function of an entry. The index after the last adds an entry with that function alone; a higher
    /// index is ignored.
    void setDownFunction(std::unique_ptr<FunctionManagement::Function> function, std::size_t index);
    void setUpFunction(std::unique_ptr<FunctionManagement::Function> function, std::size_t index);

    /// The type name of the function; NO_FUNCTION for an empty slot and outside the entries.
    std::string_view getDownFunctionType(std::size_t index) const;
    std::string_view getUpFunctionType(std::size_t index) const;

    /// Whether the entry has a function.
    bool isUsed(std::size_t index) const { return index < entries.size() && entries[index].isUsed(); }
    /// Whether no entry has a function.
    bool isEmpty() const;

    /// Calls `visit` with each down and up function.
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

    /// Whether all entries are equal, or both have none.
    bool hasSameEntries(const ButtonConfiguration& other) const;

    /// Writes a "Function" element for each entry, indented by two TABs more than the derived element.
    void writeEntries(std::ostream& out, int indent) const;

    /// Adds an entry for each "Function" element in `element`, also for an empty one. If `createFunction` returns none,
    /// the slot stays empty.
    void readEntries(const XmlElement& element, const FunctionManagement::FunctionFactory& createFunction);

private:
    void setFunction(std::unique_ptr<FunctionManagement::Function> ButtonFunction::*slot, std::size_t index,
                     std::unique_ptr<FunctionManagement::Function> function);

    std::vector<ButtonFunction> entries;
};
}  // namespace Backend
