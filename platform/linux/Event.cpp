#include "platform/Event.h"

#include <semaphore.h>

#include <cerrno>
#include <ctime>

struct Event::Semaphore {
    sem_t value;
};

Event::Event() : semaphore(std::make_unique<Semaphore>()) { sem_init(&semaphore->value, 0, 0); }

Event::~Event() { sem_destroy(&semaphore->value); }

void Event::set()
{
    if (!signalled.exchange(true)) sem_post(&semaphore->value);
}

void Event::wait()
{
    while (sem_wait(&semaphore->value) != 0 && errno == EINTR) {}
    signalled.exchange(false);
}

bool Event::waitFor(std::chrono::milliseconds longest)
{
    timespec until{};
    clock_gettime(CLOCK_MONOTONIC, &until);
    const auto nanoseconds = until.tv_nsec + (longest.count() % 1000) * 1000000;
    until.tv_sec += static_cast<time_t>(longest.count() / 1000 + nanoseconds / 1000000000);
    until.tv_nsec = static_cast<long>(nanoseconds % 1000000000);
    int failed = 0;
    while ((failed = sem_clockwait(&semaphore->value, CLOCK_MONOTONIC, &until)) != 0 && errno == EINTR) {}
    if (failed != 0) return false;
    signalled.exchange(false);
    return true;
}
