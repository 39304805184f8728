#include "keyboardhook/HookThread.h"

#include <poll.h>
#include <pthread.h>
#include <signal.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <system_error>

#include "platform/DbgStream.h"

namespace KeyboardHook
{
namespace
{
/// In milliseconds; shorter than the time between releasing a key and pressing it again.
constexpr int RECONCILE_INTERVAL = 20;
constexpr int FOR_EVER = -1;

/// A write to a server that has just ended fails, and must not end the process.
void blockBrokenPipes()
{
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGPIPE);
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
}
}  // namespace

HookThread::~HookThread()
{
    const MutexLock oneCaller(calls);
    stop();
}

bool HookThread::change(const std::function<void(HookSettings&)>& howTo)
{
    const MutexLock oneCaller(calls);
    MutexLock lock(shared);
    howTo(settings);
    ++requested;
    const bool needed = settings.needsServer();
    if (needed && !running) {
        lock.unlock();
        const bool started = start();
        lock.lock();
        if (!started) settings.enabled = false;
    }
    if (running) wake();
    while (applied != requested && running) progress.wait(lock);
    const bool holds = running || !needed;
    lock.unlock();
    if (!needed) stop();
    return holds;
}

bool HookThread::start()
{
    stop();  // a thread that ended because its server was lost
    server = XServer::connect();
    if (!server) return false;
    wakeDescriptor = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    MutexLock lock(shared);
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
    MutexLock lock(shared);
    stopping = true;
    lock.unlock();
    wake();
    thread.join();
    lock.lock();
    stopping = false;
    lock.unlock();
    server.reset();
    ::close(wakeDescriptor);
}

void HookThread::wake() const { ::eventfd_write(wakeDescriptor, 1); }

void HookThread::run()
{
    pthread_setname_np(pthread_self(), "orv-keyboard");
    blockBrokenPipes();
    {
        Capture capture(*server, [&] { toggle(capture); });
        while (!isStopping() && server->isAlive()) {
            applySettings(capture);
            handleEvents(capture);
            waitForEvents(capture);
        }
    }
    if (!isStopping()) serverWasLost();
    const MutexLock lock(shared);
    running = false;
    progress.notify_all();
}

void HookThread::applySettings(Capture& capture)
{
    MutexLock lock(shared);
    if (applied == requested) return;
    const HookSettings now = settings;
    const auto applying = requested;
    lock.unlock();
    capture.apply(now);
    lock.lock();
    applied = applying;
    progress.notify_all();
}

/// What the server says while it is requested something counts too, before we sleep.
void HookThread::handleEvents(Capture& capture)
{
    do {
        while (const auto event = server->nextEvent()) capture.handle(*event);
        if (capture.needsReconciling()) capture.reconcile();
    } while (server->hasEvent());
}

void HookThread::waitForEvents(const Capture& capture)
{
    pollfd sources[] = {{server->getFileDescriptor(), POLLIN, 0}, {wakeDescriptor, POLLIN, 0}};
    ::poll(sources, 2, capture.needsReconciling() ? RECONCILE_INTERVAL : FOR_EVER);
    eventfd_t wakes = 0;
    ::eventfd_read(wakeDescriptor, &wakes);
}

/// A control key was pressed.
void HookThread::toggle(Capture& capture)
{
    HookSettings now;
    {
        const MutexLock lock(shared);
        if (settings.controlKeys.none()) return;  // the control keys were removed meanwhile
        settings.enabled = !settings.enabled;
        now = settings;
    }
    capture.apply(now);
    now.window.post({.number = UD_KEYBOARDHOOK_GLOBAL_KEY_CHANGED, .wparam = now.enabled});
}

void HookThread::serverWasLost()
{
    const MutexLock lock(shared);
    if (!settings.enabled) return;
    settings.enabled = false;
    settings.window.post({.number = UD_KEYBOARDHOOK_GLOBAL_KEY_CHANGED, .wparam = 0});
}

bool HookThread::isStopping()
{
    const MutexLock lock(shared);
    return stopping;
}
}  // namespace KeyboardHook
