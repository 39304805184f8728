#include "platform/Thread.h"

#include <pthread.h>
#include <sched.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <utility>

namespace
{
// Below the JACK server's own threads, above everything ordinary.
constexpr int MOST_URGENT_PRIORITY = 8;
}  // namespace

constinit thread_local ThreadId Detail::knownThreadId = 0;

ThreadId Detail::learnThreadId() { return knownThreadId = static_cast<ThreadId>(syscall(SYS_gettid)); }

bool requestRealTimePriority(int step)
{
    sched_param parameters{};
    parameters.sched_priority = MOST_URGENT_PRIORITY - step;
    return pthread_setschedparam(pthread_self(), SCHED_FIFO, &parameters) == 0;
}

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
