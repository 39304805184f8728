#pragma once

#include <atomic>
#include <chrono>
#include <functional>
#include <future>

#include "api/HostStatus.h"
#include "host/run/LiveHost.h"
#include "host/run/ProcessSignals.h"
#include "platform/Event.h"
#include "platform/Mutex.h"
#include "platform/Thread.h"

namespace Host
{
/// Live playing with a window: the control thread is a thread of its own, so that neither it nor the GUI thread waits
/// for the other. A signal that ends the program requests the window to close; if the window does not within two
/// seconds, the notes end and the program exits.
///
/// One object per process.
class PlayThread
{
public:
    /// `closeWindow` is called on the control thread. The options were checked.
    PlayThread(const RunOptions& runOptions, Report reportLine, std::function<void()> closeWindow);
    ~PlayThread();

    PlayThread(const PlayThread&) = delete;
    PlayThread& operator=(const PlayThread&) = delete;

    /// Gets the status of playing on the control thread, until `end`: within 100 ms when it changes, else twice a
    /// second. Null for none.
    void setStatusReceiver(std::function<void(const Gui::HostStatus& status)> receiver) EXCLUDES(lock);

    /// Waits until it plays. Throws what `LiveHost::start` throws.
    LiveHost& waitUntilPlaying() { return *playing.get_future().get(); }

    /// Whether the end was requested. Any thread.
    bool isEnding() const { return isWindowClosed.load() || signals.isEndRequested(); }

    /// Ends every note and playing, and returns when that is done. To be called when the window does not use the
    /// backend any more.
    void end();

private:
    void run();
    void play();
    void exitWithoutWindow();

    const RunOptions options;
    const Report report;
    const std::function<void()> closeWindow;
    Event event;
    ProcessSignals signals{event};
    void reportStatus(LiveHost& host) EXCLUDES(lock);

    Mutex lock;
    std::function<void(const Gui::HostStatus& status)> statusReceiver GUARDED_BY(lock);
    std::chrono::steady_clock::time_point lastLook;
    std::chrono::steady_clock::time_point lastReport;
    Gui::HostStatus reported;
    std::promise<LiveHost*> playing;
    std::atomic<bool> isWindowClosed{false};
    Event windowClosed;
    Thread thread;
};
}  // namespace Host
