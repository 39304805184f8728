#pragma once

#include <QSocketNotifier>
#include <QTimer>
#include <functional>
#include <memory>

#include "platform/WindowHandle.h"

namespace Gui
{
/// A window as the backend knows it: a queue that Qt's event loop empties. Posts wake the loop from any thread, a time
/// slice included, by one write to a descriptor, and then not again for some milliseconds, however many come. What is
/// posted after it is gone is freed. The GUI thread.
class GuiWindow
{
public:
    /// `handle` gets the messages in order.
    explicit GuiWindow(std::function<void(Message&)> handle);
    ~GuiWindow();

    GuiWindow(const GuiWindow&) = delete;
    GuiWindow& operator=(const GuiWindow&) = delete;

    WindowHandle getHandle() const { return WindowHandle(queue); }

private:
    class Bell;

    void drain();

    const std::function<void(Message&)> handleMessage;
    std::shared_ptr<Bell> bell;
    std::shared_ptr<MessageQueue> queue;
    QSocketNotifier notifier;
    QTimer again;
};
}  // namespace Gui
