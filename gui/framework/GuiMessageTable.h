#pragma once

#include <algorithm>
#include <cassert>
#include <span>

#include "backend/messages/TypedMessage.h"
#include "gui/framework/GuiMessageManager.h"

namespace Gui
{
/// A message manager that is a table of rows, see `Backend::on`. A number within their range that has no row is
/// reported to the debug stream and ignored.
template <class Target>
class TableMessageManager : public GuiMessageManager
{
public:
    /// At least one row, by ascending number. Both must outlive this.
    TableMessageManager(std::span<const Backend::Command<Target>> commandRows, Target& commandTarget)
        : rows(commandRows), target(commandTarget)
    {
        assert(std::ranges::is_sorted(rows, {}, &Backend::Command<Target>::number));
    }

    bool wantsMessage(unsigned int number) const final
    {
        return number >= rows.front().number && number <= rows.back().number;
    }

    void handleMessage(Message& message) final { Backend::execute(rows, target, message); }

private:
    std::span<const Backend::Command<Target>> rows;
    Target& target;
};
}  // namespace Gui
