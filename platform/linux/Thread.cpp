#include "platform/Thread.h"

#include <pthread.h>
#include <sched.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cstddef>
#include <utility>

#include "platform/DbgStream.h"

namespace
{
// Below the JACK server's own threads, above everything ordinary.
constexpr int MOST_URGENT_PRIORITY = 8;

constexpr std::array<const char*, 3> STEP_NAMES{"the clock", "the backend", "commands"};
std::array<std::atomic<RealTimeAnswer>, STEP_NAMES.size()> answers{};
}  // namespace

constinit thread_local ThreadId Detail::knownThreadId = 0;

ThreadId Detail::learnThreadId() { return knownThreadId = static_cast<ThreadId>(syscall(SYS_gettid)); }

bool requestRealTimePriority(RealTimeStep step)
{
    const auto index = static_cast<std::size_t>(step);
    sched_param parameters{};
    parameters.sched_priority = MOST_URGENT_PRIORITY - static_cast<int>(index);
    const bool granted = sched_setscheduler(0, SCHED_FIFO | SCHED_RESET_ON_FORK, &parameters) == 0;
    const auto answer = granted ? RealTimeAnswer::granted : RealTimeAnswer::refused;
    if (answers[index].exchange(answer) != answer)
        WindowsLib::DbgStream() << "real-time priority for " << STEP_NAMES[index]
                                << (granted ? ": granted" : ": refused, going on without");
    return granted;
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
