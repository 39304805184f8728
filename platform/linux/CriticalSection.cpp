#include "platform/CriticalSection.h"

#include <pthread.h>

#include <thread>

struct CriticalSection::Lock {
    pthread_mutex_t mutex;
    bool held = false;  // written by the holder only
};

CriticalSection::CriticalSection() : lock(std::make_unique<Lock>())
{
    pthread_mutexattr_t attributes;
    pthread_mutexattr_init(&attributes);
    pthread_mutexattr_setprotocol(&attributes, PTHREAD_PRIO_INHERIT);
    pthread_mutexattr_settype(&attributes, PTHREAD_MUTEX_ERRORCHECK);
    pthread_mutex_init(&lock->mutex, &attributes);
    pthread_mutexattr_destroy(&attributes);
}

CriticalSection::~CriticalSection()
{
    if (lock->held) pthread_mutex_unlock(&lock->mutex);
    pthread_mutex_destroy(&lock->mutex);
}

void CriticalSection::enter() NO_THREAD_SAFETY_ANALYSIS
{
    pthread_mutex_lock(&lock->mutex);
    lock->held = true;
}

bool CriticalSection::tryEnter() NO_THREAD_SAFETY_ANALYSIS
{
    if (pthread_mutex_trylock(&lock->mutex) != 0) return false;
    lock->held = true;
    return true;
}

void CriticalSection::leave() NO_THREAD_SAFETY_ANALYSIS
{
    lock->held = false;
    pthread_mutex_unlock(&lock->mutex);
}

bool CriticalSection::waitWithMessageLoop(const Pump& pump) NO_THREAD_SAFETY_ANALYSIS
{
    while (!tryEnter()) {
        if (!pump()) return false;
        std::this_thread::yield();
    }
    return true;
}
