#pragma once

#include <QTimer>
#include <functional>
#include <memory>

#include "gui/framework/WakeSignal.h"
#include "platform/WindowHandle.h"

namespace Gui
{
/// The window's message queue, which Qt's event loop empties. A post from any thread, a time slice included, wakes the
/// loop by one call of the system; further posts within some milliseconds need none. Messages posted after the
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
    void drain();

    const std::function<void(Message&)> handleMessage;
    std::shared_ptr<WakeSignal> wakeSignal;
    std::shared_ptr<MessageQueue> queue;
    std::unique_ptr<QObject> wakeUp;
    QTimer poll;
};
}  // namespace Gui
