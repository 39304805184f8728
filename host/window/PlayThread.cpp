#include "host/window/PlayThread.h"

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
constexpr auto STATUS_INTERVAL = 100ms;
constexpr auto LONGEST_WITHOUT_STATUS = 500ms;

std::atomic<PlayThread*> present{nullptr};

/// Qt calls exit when the connection to the window system is lost: every note is ended then, too.
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
    } catch (...) {  // only before it plays can something be thrown
        playing.set_exception(std::current_exception());
    }
}

void PlayThread::play()
{
    LiveHost host(options, signals, event, report);
    host.start();
    playing.set_value(&host);
    host.playUntil([this, &host] {
        reportStatus(host);
        return isEnding();
    });
    if (!isWindowClosed.load()) {
        closeWindow();
        windowClosed.waitFor(LONGEST_WAIT_FOR_THE_WINDOW);
    }
    host.end();
    if (!isWindowClosed.load()) exitWithoutWindow();
}

void PlayThread::setStatusReceiver(std::function<void(const Gui::HostStatus& status)> receiver)
{
    const MutexLock guard(lock);
    statusReceiver = std::move(receiver);
}

void PlayThread::reportStatus(LiveHost& host)
{
    const auto now = std::chrono::steady_clock::now();
    if (now - lastLook < STATUS_INTERVAL) return;
    lastLook = now;
    const MutexLock guard(lock);
    if (!statusReceiver) return;
    const Gui::HostStatus status = host.getPlay().windowStatus();
    const bool isNews =
        status.activeInputs != 0 || status.system != reported.system || status.trouble != reported.trouble;
    if (!isNews && now - lastReport < LONGEST_WITHOUT_STATUS) return;
    lastReport = now;
    reported = status;
    statusReceiver(status);
}

/// The window may still use any object, so none is destroyed before the process ends.
void PlayThread::exitWithoutWindow()
{
    report("The window does not respond, so the program ends without closing it. Every note was ended.");
    std::_Exit(FAILED);
}
}  // namespace Host
