#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <thread>

#include "platform/Export.h"

/// A thread's number, unique while it lives; 0 is no thread.
using ThreadId = std::uint32_t;

#if defined(_WIN32)
/// The calling thread's number, which the system keeps where it is read at once.
ORV_API ThreadId currentThreadId();
#else
namespace Detail
{
// The initial-exec model makes this a plain read for the engine lock.
extern ORV_API constinit thread_local ThreadId knownThreadId __attribute__((tls_model("initial-exec")));
ORV_API ThreadId learnThreadId();
}  // namespace Detail

/// The calling thread's number. After the first call on a thread this is a plain read.
inline ThreadId currentThreadId()
{
    const ThreadId known = Detail::knownThreadId;
    return known != 0 ? known : Detail::learnThreadId();
}
#endif

/// The threads with real-time priority, the most urgent first.
enum class RealTimeStep { clock, backend, commands };

/// Requests real-time scheduling for the calling thread; threads that it starts do not inherit it. False if the system
/// refuses, or has refused the clock, which no thread may preempt; the scheduling is then not changed. The result goes
/// to the debug stream, once for each step.
ORV_API bool requestRealTimePriority(RealTimeStep step);

/// A thread of another program is the clock, with this real-time priority, 0 for none. Later requests are for lower
/// priorities.
ORV_API void noteClockPriority(int priority);

/// The real-time priority of the calling thread, on Windows by how much it is raised; 0 for none.
ORV_API int realTimePriority();

enum class RealTimeAnswer { none, refused, granted };

/// The result of the last request of that step. Any thread.
ORV_API RealTimeAnswer realTimeAnswer(RealTimeStep step);

/// The calling thread yields to others in ordinary scheduling.
ORV_API void lowerThreadPriority();

/// A thread with a name that debuggers and process lists show (the first 15 characters of it). Started by `start`,
/// joined by `join` or the destructor.
class ORV_API Thread
{
public:
    Thread() = default;
    ~Thread() { join(); }

    Thread(const Thread&) = delete;
    Thread& operator=(const Thread&) = delete;

    void start(const std::string& name, std::function<void()> body);
    void join();
    bool isStarted() const { return thread.joinable(); }

private:
    std::thread thread;
};
