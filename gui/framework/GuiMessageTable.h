#pragma once

#include <algorithm>
#include <cassert>
#include <span>

#include "gui/framework/GuiMessageManager.h"

namespace Gui
{
/// A row of a section's message table: a number and what it does with the target.
template <class Target>
struct GuiCommand {
    unsigned int number;
    void (*execute)(Target& target, Message& message);
};

/// A message manager that is a table of rows. A number within their range that has no row is ignored.
template <class Target>
class TableMessageManager : public GuiMessageManager
{
public:
    /// At least one row, by ascending number. Both must outlive this.
    TableMessageManager(std::span<const GuiCommand<Target>> commandRows, Target& commandTarget)
        : rows(commandRows), target(commandTarget)
    {
        assert(std::ranges::is_sorted(rows, {}, &GuiCommand<Target>::number));
    }

    bool wantsMessage(unsigned int number) const final
    {
        return number >= rows.front().number && number <= rows.back().number;
    }

    void handleMessage(Message& message) final
    {
        const auto row = std::ranges::find(rows, message.number, &GuiCommand<Target>::number);
        if (row != rows.end()) row->execute(target, message);
    }

private:
    std::span<const GuiCommand<Target>> rows;
    Target& target;
};

/// A row whose message carries one value as its payload; without one it does nothing.
template <auto operation, class Value, class Target>
constexpr GuiCommand<Target> payloadCommand(unsigned int number)
{
    return {number, [](Target& target, Message& message) {
                if (auto* value = message.payload.get<Value>()) (target.*operation)(*value);
            }};
}

/// A row whose first parameter is the value.
template <auto operation, class Value, class Target>
constexpr GuiCommand<Target> valueCommand(unsigned int number)
{
    return {number, [](Target& target, Message& message) { (target.*operation)(static_cast<Value>(message.wparam)); }};
}

/// A row whose message has no arguments.
template <auto operation, class Target>
constexpr GuiCommand<Target> plainCommand(unsigned int number)
{
    return {number, [](Target& target, Message&) { (target.*operation)(); }};
}
}  // namespace Gui
