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

ThreadId currentThreadId()
{
    // At a fixed place of the thread's own block, so that the engine lock can ask at the price of a read.
    static thread_local ThreadId known __attribute__((tls_model("initial-exec"))) = 0;
    if (known == 0) known = static_cast<ThreadId>(syscall(SYS_gettid));
    return known;
}

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
