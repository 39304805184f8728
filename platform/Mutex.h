#pragma once

#include <mutex>

#include "platform/ThreadSafety.h"

/// A std::mutex that clang's thread-safety analysis understands: members that it guards are marked GUARDED_BY. For
/// state that no time slice touches; the engine's own lock is `CriticalSection`.
class CAPABILITY("mutex") Mutex
{
public:
    void lock() ACQUIRE() { mutex.lock(); }
    void unlock() RELEASE() { mutex.unlock(); }

private:
    std::mutex mutex;
};

/// Holds a `Mutex` for the length of a block. Can be unlocked and locked again within it, also by the wait of a
/// std::condition_variable_any.
class SCOPED_CAPABILITY MutexLock
{
public:
    explicit MutexLock(Mutex& toLock) ACQUIRE(toLock) : held(toLock) {}
    ~MutexLock() RELEASE() {}

    MutexLock(const MutexLock&) = delete;
    MutexLock& operator=(const MutexLock&) = delete;

    void lock() ACQUIRE() { held.lock(); }
    void unlock() RELEASE() { held.unlock(); }

private:
    std::unique_lock<Mutex> held;
};
