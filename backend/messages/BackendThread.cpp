#include "backend/messages/BackendThread.h"

#include "backend/messages/MessageManagerMaster.h"

namespace Backend
{
namespace
{
thread_local int standIns = 0;
}

bool BackendThread::isCurrent(const MessageManagerMaster& master)
{
    return standIns > 0 || !master.getWorker().isRunning() || master.currentThreadIsManagerThread();
}

BackendThread::StandIn::StandIn() { ++standIns; }
BackendThread::StandIn::~StandIn() { --standIns; }
}  // namespace Backend
