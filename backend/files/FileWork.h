#pragma once

#include <deque>
#include <functional>

#include "platform/Export.h"
#include "platform/Message.h"
#include "platform/Worker.h"

namespace Backend
{
/// Executes work with files that may take long on a thread of its own, so that keys do not wait for a disk. One piece
/// of work is executed at a time; commands that need its result are held until it is finished. The backend thread,
/// unless a function says otherwise.
class ORV_API FileWork
{
public:
    using Step = std::function<void()>;

    /// `notify` is called on the files thread when work is done; `finish` must then be called on the backend thread.
    explicit FileWork(Step notify);
    ~FileWork() { stop(); }

    /// The host's thread. `stop` waits for the work that is being executed, and frees the commands that are held.
    void start() { worker.start(); }
    void stop();

    /// True from `run` until `lastStep` has returned.
    bool isBusy() const { return busy; }

    /// Calls `work` on the files thread, which alone may use what it captured, and then `lastStep` on the backend
    /// thread. Only while no other work is being executed.
    void run(Step work, Step lastStep);

    /// Calls `work` on the files thread after all work before. No command waits for it.
    void runBeside(Step work);

    /// Keeps a command, and the thread that waits for it, until the work is finished.
    void hold(Message command) { held.push_back(std::move(command)); }

    /// Calls the last step of finished work, and passes the held commands to `execute` in their order, up to one that
    /// starts new work.
    void finish(const std::function<void(Message& command)>& execute);

    /// Any thread.
    const Worker& getWorker() const { return worker; }

private:
    void handleMessage(Message& message);

    const Step notify;
    bool busy = false;
    Step lastStep;
    std::deque<Message> held;
    Worker worker;
};
}  // namespace Backend
