#pragma once

#include <condition_variable>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>

#include "keyboardhook/Capture.h"

namespace KeyboardHook
{
/// Runs a `Capture` on a thread of its own, for as long as there is a wish that needs one. Any thread may ask, and
/// waits until what it asked for holds.
class HookThread
{
public:
    HookThread() = default;
    ~HookThread() { stop(); }

    HookThread(const HookThread&) = delete;
    HookThread& operator=(const HookThread&) = delete;

    /// False if it needs an X server and there is none; keys are then not taken.
    bool change(const std::function<void(Wishes&)>& howTo);

private:
    bool start();
    void stop();
    void wake() const;

    void run();
    void takeWishes(Capture& capture);
    void handleEvents(Capture& capture);
    void waitForNews(const Capture& capture);
    void toggle(Capture& capture);
    void serverHasGone();
    bool isStopping();

    std::mutex calls;  ///< one caller at a time

    // Written only while the thread does not run
    std::unique_ptr<XServer> server;
    int wakeDescriptor = -1;
    std::thread thread;

    std::mutex shared;
    // Guarded by it
    Wishes wishes;
    std::uint64_t asked = 0;
    std::uint64_t answered = 0;
    bool running = false;
    bool stopping = false;
    std::condition_variable progress;
};
}  // namespace KeyboardHook
