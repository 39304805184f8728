#include "platform/Thread.h"

#include <windows.h>

#include <array>
#include <atomic>
#include <cstddef>
#include <utility>

#include "platform/DbgStream.h"
#include "platform/windows/Wide.h"

namespace
{
struct Step {
    const char* name;
    int priority;
};
constexpr std::array<Step, 3> STEPS{{{"the clock", THREAD_PRIORITY_TIME_CRITICAL},
                                     {"the backend", THREAD_PRIORITY_HIGHEST},
                                     {"commands", THREAD_PRIORITY_ABOVE_NORMAL}}};
std::array<std::atomic<RealTimeAnswer>, STEPS.size()> answers{};

void note(RealTimeStep step, bool granted)
{
    const auto index = static_cast<std::size_t>(step);
    const auto answer = granted ? RealTimeAnswer::granted : RealTimeAnswer::refused;
    if (answers[index].exchange(answer) != answer)
        WindowsLib::DbgStream() << "raised priority for " << STEPS[index].name
                                << (granted ? ": granted" : ": refused, going on without");
}

/// The name for debuggers, where the system takes one (Windows 10).
void nameThread(const std::string& name)
{
    using Set = HRESULT WINAPI(HANDLE, PCWSTR);
    const auto set = reinterpret_cast<Set*>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"kernel32"), "SetThreadDescription")));
    if (set != nullptr) set(GetCurrentThread(), widen(name).c_str());
}
}  // namespace

ThreadId currentThreadId() { return GetCurrentThreadId(); }

void noteClockPriority(int priority) { note(RealTimeStep::clock, priority > 0); }

int realTimePriority()
{
    const int priority = GetThreadPriority(GetCurrentThread());
    return priority == THREAD_PRIORITY_ERROR_RETURN || priority < 0 ? 0 : priority;
}

bool requestRealTimePriority(RealTimeStep step)
{
    const int priority = STEPS[static_cast<std::size_t>(step)].priority;
    const bool mayAsk = step == RealTimeStep::clock || realTimeAnswer(RealTimeStep::clock) != RealTimeAnswer::refused;
    const bool granted = mayAsk && SetThreadPriority(GetCurrentThread(), priority) != 0;
    note(step, granted);
    return granted;
}

void lowerThreadPriority() { SetThreadPriority(GetCurrentThread(), THREAD_PRIORITY_BELOW_NORMAL); }

RealTimeAnswer realTimeAnswer(RealTimeStep step) { return answers[static_cast<std::size_t>(step)].load(); }

void Thread::start(const std::string& name, std::function<void()> body)
{
    join();
    thread = std::thread([shortName = name.substr(0, 15), run = std::move(body)] {
        nameThread(shortName);
        run();
    });
}

void Thread::join()
{
    if (thread.joinable()) thread.join();
}
