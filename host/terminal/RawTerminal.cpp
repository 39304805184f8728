#include "host/terminal/RawTerminal.h"

#include <termios.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <iterator>

#include "host/common/InputError.h"

namespace Host
{
namespace
{
constexpr int FATAL[] = {SIGQUIT, SIGILL, SIGABRT, SIGBUS, SIGFPE, SIGSEGV};

// Set before `isRaw`, which handlers look at first, and not changed while it is true.
int terminal = -1;
termios before;
termios raw;
struct sigaction fatalBefore[std::size(FATAL)];
struct sigaction suspendBefore;
struct sigaction continueBefore;
std::atomic<bool> isRaw{false};

/// A program in the background leaves the terminal to the one in front.
void apply(const termios& mode, int when)
{
    const pid_t inFront = tcgetpgrp(terminal);
    if (inFront == -1 || inFront == getpgrp()) tcsetattr(terminal, when, &mode);
}

void handle(int signal, void (*handler)(int), struct sigaction* previous)
{
    struct sigaction action {
    };
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigaction(signal, &action, previous);
}

/// What the signal did before it does now.
extern "C" void orvaneFatalSignal(int signal)
{
    RawTerminal::restoreNow();
    for (std::size_t i = 0; i < std::size(FATAL); ++i)
        if (FATAL[i] == signal) sigaction(signal, &fatalBefore[i], nullptr);
    raise(signal);
}

extern "C" void orvaneSuspendSignal(int signal);

/// The program comes to the front, perhaps for the first time.
extern "C" void orvaneContinueSignal(int)
{
    const int error = errno;
    handle(SIGTSTP, orvaneSuspendSignal, nullptr);
    if (isRaw) apply(raw, TCSANOW);
    errno = error;
}

/// The signal comes once more, undisturbed, and stops the process within this handler, or not if it is one that cannot
/// be stopped. Then the terminal is ours again.
extern "C" void orvaneSuspendSignal(int signal)
{
    const int error = errno;
    RawTerminal::restoreNow();
    sigaction(signal, &suspendBefore, nullptr);
    raise(signal);
    sigset_t suspend, blocked;
    sigemptyset(&suspend);
    sigaddset(&suspend, signal);
    pthread_sigmask(SIG_UNBLOCK, &suspend, &blocked);
    pthread_sigmask(SIG_SETMASK, &blocked, nullptr);
    orvaneContinueSignal(SIGCONT);
    errno = error;
}
}  // namespace

RawTerminal::RawTerminal(int input)
{
    if (tcgetattr(input, &before) != 0) throw InputError("--keys: standard input is no terminal to play on");
    terminal = input;
    raw = before;
    raw.c_iflag &= ~static_cast<tcflag_t>(ICRNL | INLCR | IGNCR | IXON | ISTRIP);
    raw.c_lflag &= ~static_cast<tcflag_t>(ICANON | ECHO | IEXTEN);
    raw.c_cc[VMIN] = 1;
    raw.c_cc[VTIME] = 0;
    raw.c_cc[VQUIT] = _POSIX_VDISABLE;
    isRaw = true;
    for (std::size_t i = 0; i < std::size(FATAL); ++i) handle(FATAL[i], orvaneFatalSignal, &fatalBefore[i]);
    handle(SIGTSTP, orvaneSuspendSignal, &suspendBefore);
    handle(SIGCONT, orvaneContinueSignal, &continueBefore);
    apply(raw, TCSANOW);
}

RawTerminal::~RawTerminal()
{
    sigaction(SIGCONT, &continueBefore, nullptr);
    sigaction(SIGTSTP, &suspendBefore, nullptr);
    for (std::size_t i = 0; i < std::size(FATAL); ++i) sigaction(FATAL[i], &fatalBefore[i], nullptr);
    apply(before, TCSAFLUSH);  // what was not played is not for the shell
    isRaw = false;
}

void RawTerminal::restoreNow()
{
    if (isRaw) apply(before, TCSANOW);
}
}  // namespace Host
