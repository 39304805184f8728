#pragma once

#include <condition_variable>
#include <cstdint>
#include <functional>
#include <memory>
#include <thread>

#include "keyboardhook/Capture.h"
#include "platform/Mutex.h"

namespace KeyboardHook
{
/// Runs a `Capture` on a thread of its own while the settings need an X server. `change` may be called on any thread
/// and returns when the thread has applied the change.
class HookThread
{
public:
    HookThread() = default;
    ~HookThread();

    HookThread(const HookThread&) = delete;
    HookThread& operator=(const HookThread&) = delete;

    /// False if the settings need an X server and there is none; keys are then not captured.
    bool change(const std::function<void(HookSettings&)>& howTo) EXCLUDES(calls, shared);

private:
    bool start() REQUIRES(calls) EXCLUDES(shared);
    void stop() REQUIRES(calls) EXCLUDES(shared);
    void wake() const;

    void run();
    void applySettings(Capture& capture) EXCLUDES(shared);
    void handleEvents(Capture& capture);
    void waitForEvents(const Capture& capture);
    void toggle(Capture& capture) EXCLUDES(shared);
    void serverWasLost() EXCLUDES(shared);
    bool isStopping() EXCLUDES(shared);

    Mutex calls;  ///< held by `change` from its start to its end
    std::thread thread GUARDED_BY(calls);

    // Written only while the thread does not run
    std::unique_ptr<XServer> server;
    int wakeDescriptor = -1;

    Mutex shared;  ///< between the callers and the thread
    HookSettings settings GUARDED_BY(shared);
    std::uint64_t requested GUARDED_BY(shared) = 0;  ///< changes so far
    std::uint64_t applied GUARDED_BY(shared) = 0;    ///< the last change that the thread has applied
    bool running GUARDED_BY(shared) = false;
    bool stopping GUARDED_BY(shared) = false;
    std::condition_variable_any progress;  ///< of `applied` and `running`
};
}  // namespace KeyboardHook
