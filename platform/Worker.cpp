#include "platform/Worker.h"

#include <exception>

#include "platform/DbgStream.h"

namespace
{
thread_local Worker* currentWorker = nullptr;
}

Worker::Worker(std::string threadName, unsigned int stopMessage, Handler handleMessage, std::size_t slicePool)
    : name(std::move(threadName)), stopNumber(stopMessage), handler(std::move(handleMessage)), messages(slicePool)
{
}

Worker* Worker::current() { return currentWorker; }

void Worker::start()
{
    if (thread.isStarted()) return;
    messages.open();
    thread.start(name, [this] { run(); });
}

void Worker::stop()
{
    if (!thread.isStarted()) return;
    messages.post({.number = stopNumber});
    thread.join();
    messages.close();
}

void Worker::send(Message message)
{
    Event done;
    message.answer = Answer(done);
    post(std::move(message));
    done.wait();
}

void Worker::setWaiting(bool waitsNow)
{
    ++waits;  // first, so that a thread that reads the worker as at rest also reads the new count
    waiting = waitsNow;
}

Worker::Rest Worker::rest() const
{
    const auto before = messages.handledCount() + waits;
    const bool resting = waiting || messages.isDrained();
    const auto after = messages.handledCount() + waits;
    return {.resting = resting && before == after, .changes = after};
}

void Worker::run()
{
    threadId = currentThreadId();
    if (realTimeStep) requestRealTimePriority(*realTimeStep);
    currentWorker = this;
    bool stopping = false;
    while (!stopping) {
        messages.waitForMessage();
        messages.handleNext([&](Message& message) {
            stopping = message.number == stopNumber;
            if (stopping) return;
            try {
                handler(message);
            } catch (const std::exception& failure) {
                WindowsLib::DbgStream() << name << ": message " << message.number << ": " << failure.what();
            }
        });
    }
    threadId = 0;
}
