#pragma once

#include "platform/Export.h"

namespace Backend
{
class MessageManagerMaster;

/// Which threads may use what belongs to the backend thread.
class ORV_API BackendThread
{
public:
    /// True on the backend thread, on any thread while the backend thread does not run, and on a thread with a
    /// `StandIn`. For assertions.
    static bool isCurrent(const MessageManagerMaster& master);

    /// Lets the thread that made it use the backend while it exists. For tests, which look at a backend at rest.
    class ORV_API StandIn
    {
    public:
        StandIn();
        ~StandIn();
        StandIn(const StandIn&) = delete;
        StandIn& operator=(const StandIn&) = delete;
    };
};
}  // namespace Backend
