#pragma once

#include <atomic>
#include <cstdint>
#include <functional>

#include "platform/Export.h"
#include "platform/Thread.h"
#include "platform/ThreadSafety.h"

/// A lock whose holder inherits the priority of whoever waits for it, so that a low-priority thread inside it never
/// keeps the time-slice thread waiting behind unrelated work. Not recursive. A free lock costs one atomic exchange
/// each way and no system call.
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

    /// Dispatches whatever waits in the caller's own message loop; false once the quit message came.
    using Pump = std::function<bool()>;

    /// Takes the lock on a thread that must go on serving its messages meanwhile, because the holder may be waiting
    /// for it. A free lock is taken at once, without a call of `pump`. False, and the lock not taken, on quit.
    bool waitWithMessageLoop(const Pump& pump) TRY_ACQUIRE(true);

private:
    void enterContended();
    void leaveContended();

    // The holder's thread id, 0 while free; while others wait the system adds its own mark.
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
