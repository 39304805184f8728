#include "host/run/ProcessSignals.h"

#include <unistd.h>

#include <atomic>
#include <csignal>

#include "host/terminal/RawTerminal.h"

namespace Host
{
namespace
{
constexpr int ENDING[] = {SIGINT, SIGTERM, SIGHUP};
constexpr int IGNORED[] = {SIGPIPE, SIGTTIN};
constexpr int STATUS_OF_A_SIGNAL = 128;

std::atomic<bool> endRequested{false};
std::atomic<bool> saveRequested{false};
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
}  // namespace

ProcessSignals::ProcessSignals(Event& event)
{
    eventToSet.store(&event);
    handle(SIGUSR1, orvaneSaveSignal);
    for (const int signal : ENDING)
        if (signal != SIGHUP || !isIgnored(signal)) handle(signal, orvaneEndSignal);
    for (const int signal : IGNORED) handle(signal, SIG_IGN);
}

ProcessSignals::~ProcessSignals() { eventToSet.store(nullptr); }

bool ProcessSignals::isEndRequested() const { return endRequested.load(); }

bool ProcessSignals::takeSaveRequest() { return saveRequested.exchange(false); }
}  // namespace Host
