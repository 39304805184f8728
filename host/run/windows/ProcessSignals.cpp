#include "host/run/ProcessSignals.h"

#include <windows.h>

#include <atomic>

#include "host/terminal/RawTerminal.h"

namespace Host
{
namespace
{
constexpr UINT STATUS_OF_AN_INTERRUPTION = 130;
constexpr DWORD LONGEST_END = 4500;  // milliseconds; after 5000 Windows ends the process

std::atomic<bool> endRequested{false};
std::atomic<Event*> eventToSet{nullptr};

/// Set when the object is destroyed, which is when every note has ended.
HANDLE ended()
{
    static const HANDLE event = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    return event;
}

/// On a thread of the system. After a closed console, a log-off or a shut-down the process ends when it returns.
BOOL WINAPI handle(DWORD control)
{
    const bool again = endRequested.exchange(true);
    const bool isInterruption = control == CTRL_C_EVENT || control == CTRL_BREAK_EVENT;
    if (again && isInterruption) {
        RawTerminal::restoreNow();
        ExitProcess(STATUS_OF_AN_INTERRUPTION);
    }
    if (Event* event = eventToSet.load()) event->set();
    if (!isInterruption) WaitForSingleObject(ended(), LONGEST_END);
    return TRUE;
}
}  // namespace

ProcessSignals::ProcessSignals(Event& event)
{
    eventToSet.store(&event);
    ended();
    SetConsoleCtrlHandler(handle, TRUE);
}

ProcessSignals::~ProcessSignals()
{
    eventToSet.store(nullptr);
    SetEvent(ended());
}

bool ProcessSignals::isEndRequested() const { return endRequested.load(); }

bool ProcessSignals::takeSaveRequest() { return false; }

bool ProcessSignals::takeSuspendRequest() { return false; }

void ProcessSignals::suspend() {}
}  // namespace Host
