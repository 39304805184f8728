#include "platform/Thread.h"

#include <pthread.h>
#include <sched.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cstddef>
#include <utility>

#include "platform/DbgStream.h"

namespace
{
// Below the threads of a JACK server, above all threads without real-time priority.
constexpr int MOST_URGENT_PRIORITY = 8;

constexpr std::array<const char*, 3> STEP_NAMES{"the clock", "the backend", "commands"};
std::array<std::atomic<RealTimeAnswer>, STEP_NAMES.size()> answers{};
std::atomic<int> clockPriority{MOST_URGENT_PRIORITY};

void note(RealTimeStep step, bool granted)
{
    const auto index = static_cast<std::size_t>(step);
    const auto answer = granted ? RealTimeAnswer::granted : RealTimeAnswer::refused;
    if (answers[index].exchange(answer) != answer)
        WindowsLib::DbgStream() << "real-time priority for " << STEP_NAMES[index]
                                << (granted ? ": granted" : ": refused, going on without");
}
}  // namespace

constinit thread_local ThreadId Detail::knownThreadId = 0;

ThreadId Detail::learnThreadId() { return knownThreadId = static_cast<ThreadId>(syscall(SYS_gettid)); }

void noteClockPriority(int priority)
{
    const bool granted = priority > static_cast<int>(RealTimeStep::commands);
    clockPriority.store(granted ? std::min(priority, MOST_URGENT_PRIORITY) : MOST_URGENT_PRIORITY);
    note(RealTimeStep::clock, granted);
}

int realTimePriority()
{
    sched_param parameters{};
    const int policy = sched_getscheduler(0) & ~SCHED_RESET_ON_FORK;
    if ((policy != SCHED_FIFO && policy != SCHED_RR) || sched_getparam(0, &parameters) != 0) return 0;
    return parameters.sched_priority;
}

bool requestRealTimePriority(RealTimeStep step)
{
    sched_param parameters{};
    parameters.sched_priority = clockPriority.load() - static_cast<int>(step);
    const bool mayAsk = step == RealTimeStep::clock || realTimeAnswer(RealTimeStep::clock) != RealTimeAnswer::refused;
    const bool granted = mayAsk && sched_setscheduler(0, SCHED_FIFO | SCHED_RESET_ON_FORK, &parameters) == 0;
    note(step, granted);
    return granted;
}

void lowerThreadPriority()
{
    constexpr int LOWER = 10;  // of a thread, where POSIX has processes
    setpriority(PRIO_PROCESS, static_cast<id_t>(syscall(SYS_gettid)), LOWER);
}

RealTimeAnswer realTimeAnswer(RealTimeStep step) { return answers[static_cast<std::size_t>(step)].load(); }

void Thread::start(const std::string& name, std::function<void()> body)
{
    join();
    thread = std::thread([shortName = name.substr(0, 15), run = std::move(body)] {
        pthread_setname_np(pthread_self(), shortName.c_str());
        run();
    });
}

void Thread::join()
{
    if (thread.joinable()) thread.join();
}
