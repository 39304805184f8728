#pragma once

#include "platform/Message.h"

namespace Gui
{
/// Handles the backend's messages of one section: a range of the numbers of `GuiMessages.h`. The GUI thread.
class GuiMessageManager
{
public:
    virtual ~GuiMessageManager() = default;
    virtual bool wantsMessage(unsigned int number) const = 0;
    /// May move the payload out of the message; otherwise it is freed with the message.
    virtual void handleMessage(Message& message) = 0;
};
}  // namespace Gui
