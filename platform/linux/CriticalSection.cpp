#include "platform/CriticalSection.h"

#include <linux/futex.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <thread>

// The kernel's lock with priority inheritance (futex(2), FUTEX_LOCK_PI): the word holds the owner's thread id, and
// the kernel is called only when two threads compete. The C library's mutex of that kind takes ten times the
// instructions where they do not.

namespace
{
long callKernel(std::atomic<std::uint32_t>& word, int operation)
{
    return syscall(SYS_futex, &word, operation | FUTEX_PRIVATE_FLAG, 0, nullptr, nullptr, 0);
}
}  // namespace

CriticalSection::~CriticalSection() NO_THREAD_SAFETY_ANALYSIS
{
    if ((owner.load() & FUTEX_TID_MASK) == currentThreadId()) leave();
}

void CriticalSection::enterContended()
{
    while (callKernel(owner, FUTEX_LOCK_PI) != 0 && (errno == EINTR || errno == EAGAIN)) {}
    owner.load(std::memory_order_acquire);  // pairs with the release in `leaveContended` of the last holder
}

void CriticalSection::leaveContended()
{
    owner.fetch_or(0, std::memory_order_release);  // for the thread that the kernel gives the lock to
    callKernel(owner, FUTEX_UNLOCK_PI);
}

bool CriticalSection::waitWithMessageLoop(const Pump& pump) NO_THREAD_SAFETY_ANALYSIS
{
    while (!tryEnter()) {
        if (!pump()) return false;
        std::this_thread::yield();
    }
    return true;
}
