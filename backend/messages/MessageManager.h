#pragma once

#include <functional>
#include <utility>

#include "platform/Export.h"
#include "platform/Message.h"

namespace Backend
{
class MessageManagerMaster;

/// The numbers from `first` to `last` belong to one manager.
struct MessageRange {
    unsigned int first;
    unsigned int last;
};

/// One section's commands: it posts them, and has those of its range of numbers handled on the thread of its master.
class ORV_API MessageManager
{
public:
    using Handler = std::function<void(Message& message)>;

    MessageManager(MessageManagerMaster& managerMaster, MessageRange numbers, Handler handler)
        : master(managerMaster), range(numbers), handle(std::move(handler))
    {
    }
    virtual ~MessageManager() = default;

    MessageManager(const MessageManager&) = delete;
    MessageManager& operator=(const MessageManager&) = delete;

    /// True if that number lies in this manager's range.
    virtual bool wantMessage(unsigned int message) const { return message >= range.first && message <= range.last; }

    /// Executes the message; one without a command is ignored.
    virtual void handleMessage(Message& message) { handle(message); }

    bool currentThreadIsManagerThread() const;

protected:
    MessageManagerMaster& master;

private:
    const MessageRange range;
    const Handler handle;
};
}  // namespace Backend
