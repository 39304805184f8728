#pragma once

#include <cstdint>
#include <vector>

#include "platform/Export.h"
#include "platform/Worker.h"

namespace Backend
{
class MessageManager;

/// The backend thread. Each message is executed by the first manager that accepts its number, in the order in which the
/// managers were added. A message that no manager accepts is freed.
class ORV_API MessageManagerMaster
{
public:
    static constexpr unsigned int STOP_MESSAGE = 32969;

    MessageManagerMaster();

    /// See `Worker`.
    void setRealTimeStep(RealTimeStep step) { worker.setRealTimeStep(step); }

    void start() { worker.start(); }

    /// Stops the thread after the messages posted before, and waits for its end.
    void stop() { worker.stop(); }

    /// Only before `start`. The manager is not owned and must outlive the thread.
    void addMessageManager(MessageManager* manager) { messageManagers.push_back(manager); }

    /// Any thread. Messages posted before `start` wait.
    void postMessage(unsigned int message, std::uint32_t wparam, std::int32_t lparam);
    void post(Message message) { worker.post(std::move(message)); }

    /// Waits until the message was executed. Not on the backend thread.
    void send(Message message) { worker.send(std::move(message)); }

    bool currentThreadIsManagerThread() const { return worker.currentThreadIsWorker(); }

    const Worker& getWorker() const { return worker; }

    /// The queue of the thread, for posts from a time slice.
    MessageQueue& getQueue() { return worker.queue(); }

private:
    void dispatch(Message& message);

    std::vector<MessageManager*> messageManagers;
    Worker worker;
};
}  // namespace Backend
