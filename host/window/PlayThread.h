#pragma once

#include <atomic>
#include <functional>
#include <future>

#include "host/run/LiveHost.h"
#include "host/run/ProcessSignals.h"
#include "platform/Event.h"
#include "platform/Thread.h"

namespace Host
{
/// Live playing beside a window: the control thread is a thread of its own, so that neither waits for the other. When a
/// signal wants the end it asks for the window to be closed. If the window does not answer, the notes end all the same.
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

    /// Waits until it plays. Throws what hindered it.
    LiveHost& waitUntilPlaying() { return *playing.get_future().get(); }

    /// Whether the end was asked for. Any thread.
    bool isEnding() const { return isWindowClosed.load() || signals.isEndRequested(); }

    /// To be called when nothing of the window touches the backend any more: ends with every note off, and returns when
    /// all is done.
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
    std::promise<LiveHost*> playing;
    std::atomic<bool> isWindowClosed{false};
    Event windowClosed;
    Thread thread;
};
}  // namespace Host
