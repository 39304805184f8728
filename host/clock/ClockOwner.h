#pragma once

#include <atomic>
#include <chrono>
#include <thread>

namespace Host
{
/// Says which thread owns the clock, that is, may play time slices: the process callback of the graph or the clock's
/// own thread. A change of owner waits until the slice in progress has ended, so that two slices never overlap and the
/// new owner sees what the old one wrote. See docs/decisions/0017.
class ClockOwner
{
public:
    enum class Owner { none, graph, thread };

    /// True if `who` owns the clock: play slices, then call `leave`. Never waits.
    bool enter(Owner who)
    {
        inside.fetch_add(1);
        if (owner.load() == who) return true;
        leave();
        return false;
    }
    void leave() { inside.fetch_sub(1); }

    /// Waits for the slice in progress. Not to be called within a slice, nor on two threads at once.
    void transferTo(Owner who)
    {
        owner.store(who);
        while (inside.load() != 0) std::this_thread::sleep_for(std::chrono::microseconds(100));
    }

    bool isOwnedBy(Owner who) const { return owner.load() == who; }

private:
    std::atomic<Owner> owner{Owner::none};
    std::atomic<int> inside{0};
};
}  // namespace Host
