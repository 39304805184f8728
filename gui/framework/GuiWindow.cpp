#include "gui/framework/GuiWindow.h"

#include <chrono>
#include <utility>

namespace Gui
{
namespace
{
constexpr std::size_t EVENT_CAPACITY = 1024;
constexpr int MAX_BATCH = 500;  // then Qt handles the user's events
constexpr auto POLL_INTERVAL = std::chrono::milliseconds(8);
}  // namespace

GuiWindow::GuiWindow(std::function<void(Message&)> handle)
    : handleMessage(std::move(handle)),
      wakeSignal(std::make_shared<WakeSignal>()),
      queue(std::make_shared<MessageQueue>(EVENT_CAPACITY, [signal = wakeSignal] { signal->set(); })),
      wakeUp(wakeSignal->watch([this] { drain(); }))
{
    poll.setSingleShot(true);
    QObject::connect(&poll, &QTimer::timeout, [this] { drain(); });
    if (!queue->fallAsleep()) poll.start(POLL_INTERVAL);
}

GuiWindow::~GuiWindow() { queue->close(); }

/// Polls as long as messages arrive; after that the next post wakes the loop.
void GuiWindow::drain()
{
    int handled = 0;
    while (handled < MAX_BATCH && queue->handleNext([this](Message& message) { handleMessage(message); })) ++handled;
    if (handled == MAX_BATCH)
        poll.start(0);
    else if (handled > 0 || !queue->fallAsleep())
        poll.start(POLL_INTERVAL);
}
}  // namespace Gui
