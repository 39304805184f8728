#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>

#include "platform/CriticalSection.h"

namespace Backend::MidiEngine
{
/// The longest time for which a command held the lock of the slices, or a slice waited for it. An event that is queued,
/// which is a single store, is not measured itself: only if a slice waited for it.
class LongestHold
{
public:
    /// Any thread.
    void add(std::chrono::nanoseconds time)
    {
        std::int64_t before = longest.load(std::memory_order_relaxed);
        while (time.count() > before && !longest.compare_exchange_weak(before, time.count())) {}
    }
    /// In nanoseconds, since the last call. Any thread.
    std::int64_t take() { return longest.exchange(0); }

private:
    std::atomic<std::int64_t> longest{0};
};

/// Holds the engine lock for a command, and measures for how long.
class SCOPED_CAPABILITY CommandLock
{
public:
    CommandLock(CriticalSection& section, LongestHold& holds) ACQUIRE(section) : held(section), longest(holds)
    {
        held.enter();
        since = std::chrono::steady_clock::now();
    }
    ~CommandLock() RELEASE()
    {
        const auto time = std::chrono::steady_clock::now() - since;
        held.leave();
        longest.add(time);
    }

    CommandLock(const CommandLock&) = delete;
    CommandLock& operator=(const CommandLock&) = delete;

private:
    CriticalSection& held;
    LongestHold& longest;
    std::chrono::steady_clock::time_point since;
};

/// Holds the engine lock for a slice or an event of an input, and measures only how long it had to wait.
class SCOPED_CAPABILITY PlayLock
{
public:
    PlayLock(CriticalSection& section, LongestHold& holds) ACQUIRE(section) : held(section)
    {
        if (!held.tryEnter()) wait(holds);
    }
    ~PlayLock() RELEASE() { held.leave(); }

    PlayLock(const PlayLock&) = delete;
    PlayLock& operator=(const PlayLock&) = delete;

private:
    [[gnu::noinline]] void wait(LongestHold& holds) NO_THREAD_SAFETY_ANALYSIS
    {
        const auto since = std::chrono::steady_clock::now();
        held.enter();
        holds.add(std::chrono::steady_clock::now() - since);
    }

    CriticalSection& held;
};
}  // namespace Backend::MidiEngine
