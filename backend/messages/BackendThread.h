#pragma once

#include "platform/Export.h"

namespace Backend
{
class MessageManagerMaster;

/// Checks which threads may use what belongs to the backend thread.
class ORV_API BackendThread
{
public:
    /// True on the backend thread, on any thread while the backend thread does not run, and on a thread with a
    /// `StandIn`. For assertions.
    static bool isCurrent(const MessageManagerMaster& master);

    /// The thread that makes it may use the backend as long as it exists. For tests, which inspect a backend at rest.
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
