#include "platform/CriticalSection.h"

#include <windows.h>

#include <thread>

// The word holds the owner's thread id, and a bit while others may wait. Windows has no lock that passes the priority
// of a waiting thread on to the holder: a slice that waits for a thread of lower priority waits until the scheduler
// runs that thread. Threads that do not play hold the lock no longer than a swap, so on a machine with a free processor
// it is microseconds; where every processor is taken by threads between the two priorities, it is up to the seconds
// after which Windows raises a thread that starves.

namespace
{
constexpr std::uint32_t OTHERS_WAIT = 0x80000000;  // no thread id has it
}

CriticalSection::~CriticalSection() NO_THREAD_SAFETY_ANALYSIS
{
    if ((owner.load() & ~OTHERS_WAIT) == currentThreadId()) leave();
}

void CriticalSection::enterContended()
{
    const std::uint32_t mine = currentThreadId() | OTHERS_WAIT;  // others may have slept beside this one
    for (std::uint32_t now = owner.load();;) {
        if (now == 0) {
            if (owner.compare_exchange_weak(now, mine, std::memory_order_acquire)) return;
            continue;
        }
        if ((now & OTHERS_WAIT) == 0 && !owner.compare_exchange_weak(now, now | OTHERS_WAIT)) continue;
        now |= OTHERS_WAIT;
        WaitOnAddress(&owner, &now, sizeof now, INFINITE);
        now = owner.load();
    }
}

void CriticalSection::leaveContended()
{
    owner.store(0, std::memory_order_release);
    WakeByAddressSingle(&owner);
}

bool CriticalSection::waitWithMessageLoop(const Pump& pump) NO_THREAD_SAFETY_ANALYSIS
{
    while (!tryEnter()) {
        if (!pump()) return false;
        std::this_thread::yield();
    }
    return true;
}
