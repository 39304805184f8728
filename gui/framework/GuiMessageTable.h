#pragma once

#include <algorithm>
#include <cassert>
#include <span>

#include "gui/framework/GuiMessageManager.h"

namespace Gui
{
/// A row of a section's messages: a number and what it does to its target.
template <class Target>
struct GuiCommand {
    unsigned int number;
    void (*carryOut)(Target& target, Message& message);
};

/// A manager whose rows say all there is to say. A number within the range of its rows but without one is taken and
/// ignored.
template <class Target>
class TableMessageManager : public GuiMessageManager
{
public:
    /// Rows by ascending number, at least one; both must outlive this.
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
        if (row != rows.end()) row->carryOut(target, message);
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

/// A row of a message that says nothing more.
template <auto operation, class Target>
constexpr GuiCommand<Target> plainCommand(unsigned int number)
{
    return {number, [](Target& target, Message&) { (target.*operation)(); }};
}
}  // namespace Gui
