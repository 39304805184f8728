#include "keyboardhook/HookThread.h"

#include <poll.h>
#include <pthread.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <system_error>

#include "platform/DbgStream.h"

namespace KeyboardHook
{
namespace
{
/// In milliseconds; no finger lets go of a key and strikes it again in that time.
constexpr int RECONCILE_INTERVAL = 20;
constexpr int FOR_EVER = -1;
}  // namespace

bool HookThread::change(const std::function<void(Wishes&)>& howTo)
{
    const std::lock_guard oneCaller(calls);
    std::unique_lock guard(shared);
    howTo(wishes);
    ++asked;
    const bool needed = wishes.needServer();
    if (needed && !running) {
        guard.unlock();
        const bool started = start();
        guard.lock();
        if (!started) wishes.enabled = false;
    }
    if (running) wake();
    progress.wait(guard, [this] { return answered == asked || !running; });
    const bool holds = running || !needed;
    guard.unlock();
    if (!needed) stop();
    return holds;
}

bool HookThread::start()
{
    stop();  // one that ended because its server had gone
    server = XServer::connect();
    if (!server) return false;
    wakeDescriptor = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    running = true;
    try {
        thread = std::thread([this] { run(); });
    } catch (const std::system_error& failure) {
        WindowsLib::DbgStream() << "Global keyboard: " << failure.what();
        running = false;
    }
    return running;
}

void HookThread::stop()
{
    if (!thread.joinable()) return;
    {
        const std::lock_guard guard(shared);
        stopping = true;
    }
    wake();
    thread.join();
    stopping = false;
    server.reset();
    ::close(wakeDescriptor);
}

void HookThread::wake() const { ::eventfd_write(wakeDescriptor, 1); }

void HookThread::run()
{
    pthread_setname_np(pthread_self(), "orv-keyboard");
    {
        Capture capture(*server, [&] { toggle(capture); });
        while (!isStopping() && server->isAlive()) {
            takeWishes(capture);
            handleEvents(capture);
            waitForNews(capture);
        }
    }
    if (!isStopping()) serverHasGone();
    const std::lock_guard guard(shared);
    running = false;
    progress.notify_all();
}

void HookThread::takeWishes(Capture& capture)
{
    std::unique_lock guard(shared);
    if (answered == asked) return;
    const Wishes now = wishes;
    const auto answering = asked;
    guard.unlock();
    capture.apply(now);
    guard.lock();
    answered = answering;
    progress.notify_all();
}

/// What the server says while it is asked something counts too, before we sleep.
void HookThread::handleEvents(Capture& capture)
{
    do {
        while (const auto event = server->nextEvent()) capture.handle(*event);
        if (capture.needsReconciling()) capture.reconcile();
    } while (server->hasEvent());
}

void HookThread::waitForNews(const Capture& capture)
{
    pollfd sources[] = {{server->getFileDescriptor(), POLLIN, 0}, {wakeDescriptor, POLLIN, 0}};
    ::poll(sources, 2, capture.needsReconciling() ? RECONCILE_INTERVAL : FOR_EVER);
    eventfd_t wakes = 0;
    ::eventfd_read(wakeDescriptor, &wakes);
}

/// A control key was pressed.
void HookThread::toggle(Capture& capture)
{
    Wishes now;
    {
        const std::lock_guard guard(shared);
        if (wishes.controlKeys.none()) return;  // it is one no longer
        wishes.enabled = !wishes.enabled;
        now = wishes;
    }
    capture.apply(now);
    now.window.post({.number = UD_KEYBOARDHOOK_GLOBAL_KEY_CHANGED, .wparam = now.enabled});
}

void HookThread::serverHasGone()
{
    const std::lock_guard guard(shared);
    if (!wishes.enabled) return;
    wishes.enabled = false;
    wishes.window.post({.number = UD_KEYBOARDHOOK_GLOBAL_KEY_CHANGED, .wparam = 0});
}

bool HookThread::isStopping()
{
    const std::lock_guard guard(shared);
    return stopping;
}
}  // namespace KeyboardHook
