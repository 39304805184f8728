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

// Written before `isRaw`, which handlers read first, and not while it is true.
int terminal = -1;
termios before;
termios raw;
struct sigaction fatalBefore[std::size(FATAL)];
struct sigaction continueBefore;
std::atomic<bool> isRaw{false};

/// A program in the background leaves the terminal to the one in the foreground.
void apply(const termios& mode, int when)
{
    const pid_t foreground = tcgetpgrp(terminal);
    if (foreground == -1 || foreground == getpgrp()) tcsetattr(terminal, when, &mode);
}

void handle(int signal, void (*handler)(int), struct sigaction* previous)
{
    struct sigaction action {
    };
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigaction(signal, &action, previous);
}

/// Then the signal has its former effect.
extern "C" void orvaneFatalSignal(int signal)
{
    RawTerminal::restoreNow();
    for (std::size_t i = 0; i < std::size(FATAL); ++i)
        if (FATAL[i] == signal) sigaction(signal, &fatalBefore[i], nullptr);
    raise(signal);
}

/// The program comes to the foreground, perhaps for the first time.
extern "C" void orvaneContinueSignal(int)
{
    const int error = errno;
    RawTerminal::applyNow();
    errno = error;
}
}  // namespace

RawTerminal::RawTerminal(int input)
{
    if (tcgetattr(input, &before) != 0) throw InputError("--keys: standard input is not a terminal");
    terminal = input;
    raw = before;
    raw.c_iflag &= ~static_cast<tcflag_t>(ICRNL | INLCR | IGNCR | IXON | ISTRIP);
    raw.c_lflag &= ~static_cast<tcflag_t>(ICANON | ECHO | IEXTEN);
    raw.c_cc[VMIN] = 1;
    raw.c_cc[VTIME] = 0;
    raw.c_cc[VQUIT] = _POSIX_VDISABLE;
    isRaw = true;
    for (std::size_t i = 0; i < std::size(FATAL); ++i) handle(FATAL[i], orvaneFatalSignal, &fatalBefore[i]);
    handle(SIGCONT, orvaneContinueSignal, &continueBefore);
    apply(raw, TCSANOW);
}

RawTerminal::~RawTerminal()
{
    sigaction(SIGCONT, &continueBefore, nullptr);
    for (std::size_t i = 0; i < std::size(FATAL); ++i) sigaction(FATAL[i], &fatalBefore[i], nullptr);
    apply(before, TCSAFLUSH);  // unread keys must not reach the shell
    isRaw = false;
}

void RawTerminal::restoreNow()
{
    if (isRaw) apply(before, TCSANOW);
}

void RawTerminal::applyNow()
{
    if (isRaw) apply(raw, TCSANOW);
}
}  // namespace Host
