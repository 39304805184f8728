#pragma once

#include "platform/Export.h"
#include "platform/Message.h"

namespace Backend
{
class MessageManagerMaster;

/// One section's commands: it takes the messages of its own range of numbers, on the thread of its master.
class ORV_API MessageManager
{
public:
    explicit MessageManager(MessageManagerMaster& managerMaster) : master(managerMaster) {}
    virtual ~MessageManager() = default;

    MessageManager(const MessageManager&) = delete;
    MessageManager& operator=(const MessageManager&) = delete;

    /// True if that number lies in this manager's range.
    virtual bool wantMessage(unsigned int message) const = 0;

    /// Carries the message out; one without a command is ignored.
    virtual void handleMessage(Message& message) = 0;

    bool currentThreadIsManagerThread() const;

protected:
    MessageManagerMaster& master;
};
}  // namespace Backend
