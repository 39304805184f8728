#pragma once

#include <functional>
#include <memory>

#include "platform/Export.h"
#include "platform/ThreadSafety.h"

/// A lock whose holder inherits the priority of whoever waits for it, so that a low-priority thread inside it never
/// keeps the time-slice thread waiting behind unrelated work. Not recursive.
class ORV_API CAPABILITY("lock") CriticalSection
{
public:
    CriticalSection();

    /// Releases the lock once if the calling thread still holds it.
    ~CriticalSection();

    CriticalSection(const CriticalSection&) = delete;
    CriticalSection& operator=(const CriticalSection&) = delete;

    void enter() ACQUIRE();
    bool tryEnter() TRY_ACQUIRE(true);
    void leave() RELEASE();

    /// Dispatches whatever waits in the caller's own message loop; false once the quit message came.
    using Pump = std::function<bool()>;

    /// Takes the lock on a thread that must go on serving its messages meanwhile, because the holder may be waiting
    /// for it. A free lock is taken at once, without a call of `pump`. False, and the lock not taken, on quit.
    bool waitWithMessageLoop(const Pump& pump) TRY_ACQUIRE(true);

private:
    struct Lock;
    std::unique_ptr<Lock> lock;
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
