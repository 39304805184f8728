#pragma once

#include <cstdint>
#include <vector>

#include "platform/Export.h"
#include "platform/Worker.h"

namespace Backend
{
class MessageManager;

/// The backend thread: it offers each message to the managers in the order in which they were added, and the first
/// that handles it executes it. A message without a manager is freed.
class ORV_API MessageManagerMaster
{
public:
    static constexpr unsigned int STOP_MESSAGE = 32969;

    MessageManagerMaster();

    /// See `Worker`.
    void setRealTimeStep(RealTimeStep step) { worker.setRealTimeStep(step); }

    void start() { worker.start(); }

    /// Ends the thread after the messages posted before, and waits for that.
    void stop() { worker.stop(); }

    /// Before `start` only. The manager is not owned and must outlive the thread.
    void addMessageManager(MessageManager* manager) { messageManagers.push_back(manager); }

    /// Any thread. Posts before `start` wait.
    void postMessage(unsigned int message, std::uint32_t wparam, std::int32_t lparam);
    void post(Message message) { worker.post(std::move(message)); }

    /// Waits until the message was carried out. Not on the backend thread.
    void send(Message message) { worker.send(std::move(message)); }

    bool currentThreadIsManagerThread() const { return worker.currentThreadIsWorker(); }

    const Worker& getWorker() const { return worker; }

    /// The thread's queue, for posts from a time slice.
    MessageQueue& getQueue() { return worker.queue(); }

private:
    void dispatch(Message& message);

    std::vector<MessageManager*> messageManagers;
    Worker worker;
};
}  // namespace Backend
