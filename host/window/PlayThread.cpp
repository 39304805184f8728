#include "host/window/PlayThread.h"

#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <utility>

namespace Host
{
using namespace std::chrono_literals;

namespace
{
constexpr auto LONGEST_WAIT_FOR_THE_WINDOW = 2s;
constexpr int FAILED = 1;

std::atomic<PlayThread*> present{nullptr};

/// A window system that dies ends the process from within Qt: no note may be left sounding then either.
extern "C" void orvaneEndPlaying()
{
    if (PlayThread* thread = present.load()) thread->end();
}
}  // namespace

PlayThread::PlayThread(const RunOptions& runOptions, Report reportLine, std::function<void()> close)
    : options(runOptions), report(std::move(reportLine)), closeWindow(std::move(close))
{
    present.store(this);
    std::atexit(orvaneEndPlaying);
    thread.start("orvane control", [this] { run(); });
}

PlayThread::~PlayThread()
{
    end();
    present.store(nullptr);
}

void PlayThread::end()
{
    isWindowClosed.store(true);
    event.set();
    windowClosed.set();
    thread.join();
}

void PlayThread::run()
{
    try {
        play();
    } catch (...) {  // before it played; later nothing throws
        playing.set_exception(std::current_exception());
    }
}

void PlayThread::play()
{
    LiveHost host(options, signals, event, report);
    host.start();
    playing.set_value(&host);
    host.playUntil([this] { return isEnding(); });
    if (!isWindowClosed.load()) {
        closeWindow();
        windowClosed.waitFor(LONGEST_WAIT_FOR_THE_WINDOW);
    }
    host.end();
    if (!isWindowClosed.load()) exitWithoutWindow();
}

/// What it may yet touch must not go before it, so everything goes at once.
void PlayThread::exitWithoutWindow()
{
    report("The window does not answer, so the program ends without it. Every note is off.");
    _exit(FAILED);
}
}  // namespace Host
