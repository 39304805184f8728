#pragma once

#include <functional>
#include <utility>

#include "platform/Export.h"
#include "platform/Message.h"

namespace Backend
{
class MessageManagerMaster;

/// The numbers of a manager's messages, `first` to `last`.
struct MessageRange {
    unsigned int first;
    unsigned int last;
};

/// The commands of a section: posts them, and executes those of its range of numbers on the thread of its master.
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

    /// Whether the number is in this manager's range.
    virtual bool wantMessage(unsigned int message) const { return message >= range.first && message <= range.last; }

    /// Executes the message; one without an operation is ignored.
    virtual void handleMessage(Message& message) { handle(message); }

    bool currentThreadIsManagerThread() const;

protected:
    MessageManagerMaster& master;

private:
    const MessageRange range;
    const Handler handle;
};
}  // namespace Backend
