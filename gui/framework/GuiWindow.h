#pragma once

#include <QSocketNotifier>
#include <QTimer>
#include <functional>
#include <memory>

#include "platform/WindowHandle.h"

namespace Gui
{
/// The window's message queue, which Qt's event loop empties. A post from any thread, a time slice included, wakes the
/// loop by one write to a descriptor; further posts within some milliseconds write nothing. Messages posted after the
/// destructor are freed. Belongs to the GUI thread.
class GuiWindow
{
public:
    /// `handle` is called for each message, in order.
    explicit GuiWindow(std::function<void(Message&)> handle);
    ~GuiWindow();

    GuiWindow(const GuiWindow&) = delete;
    GuiWindow& operator=(const GuiWindow&) = delete;

    WindowHandle getHandle() const { return WindowHandle(queue); }

private:
    class WakeSignal;

    void drain();

    const std::function<void(Message&)> handleMessage;
    std::shared_ptr<WakeSignal> wakeSignal;
    std::shared_ptr<MessageQueue> queue;
    QSocketNotifier notifier;
    QTimer poll;
};
}  // namespace Gui
