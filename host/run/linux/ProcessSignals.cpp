#include "host/run/ProcessSignals.h"

#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <csignal>
#include <iterator>

#include "host/terminal/RawTerminal.h"

namespace Host
{
namespace
{
constexpr int ENDING[] = {SIGINT, SIGTERM, SIGHUP};
constexpr int MAY_BE_IGNORED[] = {SIGHUP, SIGTSTP};
constexpr int IGNORED[] = {SIGPIPE, SIGTTIN};
constexpr int STATUS_OF_A_SIGNAL = 128;

std::atomic<bool> endRequested{false};
std::atomic<bool> saveRequested{false};
std::atomic<bool> suspendRequested{false};
std::atomic<Event*> eventToSet{nullptr};

void setEvent()
{
    if (Event* event = eventToSet.load()) event->set();
}

extern "C" void orvaneEndSignal(int signal)
{
    if (endRequested.exchange(true)) {
        RawTerminal::restoreNow();
        _exit(STATUS_OF_A_SIGNAL + signal);
    }
    setEvent();
}

extern "C" void orvaneSaveSignal(int)
{
    saveRequested.store(true);
    setEvent();
}

extern "C" void orvaneSuspendSignal(int)
{
    suspendRequested.store(true);
    setEvent();
}

void handle(int signal, void (*handler)(int))
{
    struct sigaction action {
    };
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigaction(signal, &action, nullptr);
}

bool isIgnored(int signal)
{
    struct sigaction present {
    };
    return sigaction(signal, nullptr, &present) == 0 && present.sa_handler == SIG_IGN;
}

/// A shell without job control, and nohup, ignore some of them for the program.
void handleUnlessIgnored(int signal, void (*handler)(int))
{
    const bool mayBe = std::ranges::find(MAY_BE_IGNORED, signal) != std::end(MAY_BE_IGNORED);
    if (!mayBe || !isIgnored(signal)) handle(signal, handler);
}
}  // namespace

ProcessSignals::ProcessSignals(Event& event)
{
    eventToSet.store(&event);
    handle(SIGUSR1, orvaneSaveSignal);
    for (const int signal : ENDING) handleUnlessIgnored(signal, orvaneEndSignal);
    handleUnlessIgnored(SIGTSTP, orvaneSuspendSignal);
    for (const int signal : IGNORED) handle(signal, SIG_IGN);
}

ProcessSignals::~ProcessSignals() { eventToSet.store(nullptr); }

bool ProcessSignals::isEndRequested() const { return endRequested.load(); }

bool ProcessSignals::takeSaveRequest() { return saveRequested.exchange(false); }

bool ProcessSignals::takeSuspendRequest() { return suspendRequested.exchange(false); }

void ProcessSignals::suspend()
{
    RawTerminal::restoreNow();
    suspendRequested.store(false);  // repeated while the notes ended
    handle(SIGTSTP, SIG_DFL);
    raise(SIGTSTP);  // stops this thread, and with it the others, before it returns
    handle(SIGTSTP, orvaneSuspendSignal);
    RawTerminal::applyNow();
}
}  // namespace Host
