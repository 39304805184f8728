#include "platform/Event.h"

#include <windows.h>

struct Event::Semaphore {
    HANDLE value;
};

Event::Event() : semaphore(std::make_unique<Semaphore>(CreateEventW(nullptr, FALSE, FALSE, nullptr))) {}

Event::~Event() { CloseHandle(semaphore->value); }

void Event::set()
{
    if (!signalled.exchange(true)) SetEvent(semaphore->value);
}

void Event::wait()
{
    WaitForSingleObject(semaphore->value, INFINITE);
    signalled.exchange(false);
}

bool Event::waitFor(std::chrono::milliseconds longest)
{
    if (WaitForSingleObject(semaphore->value, static_cast<DWORD>(longest.count())) != WAIT_OBJECT_0) return false;
    signalled.exchange(false);
    return true;
}
