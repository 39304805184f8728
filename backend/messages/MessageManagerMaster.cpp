#include "backend/messages/MessageManagerMaster.h"

#include "backend/messages/MessageManager.h"
#include "platform/DbgStream.h"

namespace Backend
{
namespace
{
constexpr std::size_t ROOM_FOR_SLICES = 1024;  // messages that time slices can post without an allocation
}

MessageManagerMaster::MessageManagerMaster()
    : worker(
          "orv-backend", STOP_MESSAGE, [this](Message& message) { dispatch(message); }, ROOM_FOR_SLICES)
{
}

void MessageManagerMaster::postMessage(unsigned int message, std::uint32_t wparam, std::int32_t lparam)
{
    post({.number = message, .wparam = wparam, .lparam = lparam});
}

void MessageManagerMaster::dispatch(Message& message)
{
    for (MessageManager* manager : messageManagers) {
        if (!manager->wantMessage(message.number)) continue;
        manager->handleMessage(message);
        return;
    }
    WindowsLib::DbgStream() << "message " << message.number << ": no manager handles it, ignored";
}

bool MessageManager::currentThreadIsManagerThread() const { return master.currentThreadIsManagerThread(); }
}  // namespace Backend
