#pragma once

#include <atomic>
#include <chrono>
#include <thread>

namespace Host
{
/// Decides which thread calls the time slices. Only the holder enters, and passing the baton on waits until a slice
/// that is under way has ended, so that two never overlap and what the one wrote the other sees.
class ClockBaton
{
public:
    enum class Holder { nobody, graph, thread };

    /// True if `who` holds the baton: call slices, then `leave`. Never waits.
    bool enter(Holder who)
    {
        inside.fetch_add(1);
        if (holder.load() == who) return true;
        leave();
        return false;
    }
    void leave() { inside.fetch_sub(1); }

    /// Not from within a slice.
    void passTo(Holder who)
    {
        holder.store(who);
        while (inside.load() != 0) std::this_thread::sleep_for(std::chrono::microseconds(100));
    }

    bool isHeldBy(Holder who) const { return holder.load() == who; }

private:
    std::atomic<Holder> holder{Holder::nobody};
    std::atomic<int> inside{0};
};
}  // namespace Host
