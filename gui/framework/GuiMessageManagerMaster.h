#pragma once

#include <thread>
#include <vector>

#include "gui/framework/GuiMessageManager.h"
#include "platform/Export.h"

namespace Gui
{
/// Passes each message of the backend to the first manager that accepts it.
class ORV_API GuiMessageManagerMaster
{
public:
    /// Not owned. Messages are offered to them in this order.
    void addMessageManager(GuiMessageManager* manager) { managers.push_back(manager); }
    void clear() { managers.clear(); }

    void setThreadId(std::thread::id thread) { guiThread = thread; }
    bool currentThreadIsManagerThread() const { return std::this_thread::get_id() == guiThread; }

    bool wantMessage(unsigned int number) const { return find(number) != nullptr; }
    /// False if no manager accepts it.
    bool handleMessage(Message& message) const;

private:
    GuiMessageManager* find(unsigned int number) const;

    std::thread::id guiThread;
    std::vector<GuiMessageManager*> managers;
};
}  // namespace Gui
