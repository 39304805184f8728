#pragma once

#include "platform/Message.h"

namespace Gui
{
/// One section's share of what the backend tells the window: a range of numbers of `GuiMessages.h` and what to do with
/// them. The GUI thread.
class GuiMessageManager
{
public:
    virtual ~GuiMessageManager() = default;
    virtual bool wantsMessage(unsigned int number) const = 0;
    /// May take what the message owns; what it leaves is freed with it.
    virtual void handleMessage(Message& message) = 0;
};
}  // namespace Gui
