#include "backend/files/FileWork.h"

#include <exception>
#include <utility>

#include "platform/DbgStream.h"

namespace Backend
{
namespace
{
enum Number : unsigned int { STOP = 36219, WORK = 36220, WORK_BESIDE = 36221 };
}

FileWork::FileWork(Step notifyBackend)
    : notify(std::move(notifyBackend)), worker("orv-files", STOP, [this](Message& message) { handleMessage(message); })
{
}

void FileWork::stop()
{
    worker.stop();
    held.clear();
}

void FileWork::run(Step work, Step step)
{
    busy = true;
    lastStep = std::move(step);
    worker.post({.number = WORK, .payload = Payload::of(std::move(work))});
}

void FileWork::runBeside(Step work) { worker.post({.number = WORK_BESIDE, .payload = Payload::of(std::move(work))}); }

/// The backend is notified even if the work ran out of memory; its result is then what was stored so far.
void FileWork::handleMessage(Message& message)
{
    if (const auto* work = message.payload.get<Step>()) {
        try {
            (*work)();
        } catch (const std::exception& failure) {
            WindowsLib::DbgStream() << "files: " << failure.what();
        }
    }
    if (message.number == WORK) notify();
}

void FileWork::finish(const std::function<void(Message&)>& execute)
{
    std::exchange(lastStep, nullptr)();
    busy = false;
    while (!busy && !held.empty()) {
        Message command = std::move(held.front());
        held.pop_front();
        execute(command);
    }
}
}  // namespace Backend
