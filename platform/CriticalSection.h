#pragma once

#include <atomic>
#include <cstdint>
#include <functional>

#include "platform/Export.h"
#include "platform/Thread.h"
#include "platform/ThreadSafety.h"

/// A lock with priority inheritance: its holder runs with the priority of the most urgent waiting thread, so that the
/// time-slice thread never waits for threads of lower priority that do not hold the lock. Not recursive. Taking and
/// leaving a free lock are one atomic exchange each, without a system call. Windows has no such lock: there it inherits
/// no priority.
class ORV_API CAPABILITY("lock") CriticalSection
{
public:
    CriticalSection() = default;

    /// Releases the lock once if the calling thread still holds it.
    ~CriticalSection();

    CriticalSection(const CriticalSection&) = delete;
    CriticalSection& operator=(const CriticalSection&) = delete;

    void enter() ACQUIRE()
    {
        if (!tryEnter()) enterContended();
    }

    bool tryEnter() TRY_ACQUIRE(true)
    {
        std::uint32_t free = 0;
        return owner.compare_exchange_strong(free, currentThreadId(), std::memory_order_acquire,
                                             std::memory_order_relaxed);
    }

    void leave() RELEASE()
    {
        std::uint32_t mine = currentThreadId();
        if (!owner.compare_exchange_strong(mine, 0, std::memory_order_release, std::memory_order_relaxed))
            leaveContended();
    }

    /// Dispatches the messages that wait in the caller's message loop; false once there was a quit message.
    using Pump = std::function<bool()>;

    /// Takes the lock on a thread whose message loop must go on meanwhile, because the holder may wait for it. A free
    /// lock is taken at once, without a call of `pump`. False, without the lock, on quit.
    bool waitWithMessageLoop(const Pump& pump) TRY_ACQUIRE(true);

private:
    void enterContended();
    void leaveContended();

    // The holder's thread id, 0 while free; with a bit set in it while others wait.
    std::atomic<std::uint32_t> owner{0};
};

/// Holds a `CriticalSection` for the length of a block.
class SCOPED_CAPABILITY Locked
{
public:
    explicit Locked(CriticalSection& section) ACQUIRE(section) : held(section) { held.enter(); }
    ~Locked() RELEASE() { held.leave(); }

    Locked(const Locked&) = delete;
    Locked& operator=(const Locked&) = delete;

private:
    CriticalSection& held;
};
