#include "gui/framework/GuiMessageManagerMaster.h"

#include <algorithm>
#include <cassert>

namespace Gui
{
GuiMessageManager* GuiMessageManagerMaster::find(unsigned int number) const
{
    const auto found =
        std::ranges::find_if(managers, [number](const auto* manager) { return manager->wantsMessage(number); });
    return found == managers.end() ? nullptr : *found;
}

bool GuiMessageManagerMaster::handleMessage(Message& message) const
{
    assert(currentThreadIsManagerThread());
    GuiMessageManager* manager = find(message.number);
    if (manager == nullptr) return false;
    manager->handleMessage(message);
    return true;
}
}  // namespace Gui
