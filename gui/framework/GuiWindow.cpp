#include "gui/framework/GuiWindow.h"

#include <sys/eventfd.h>
#include <unistd.h>

#include <chrono>
#include <cstdint>
#include <utility>

namespace Gui
{
namespace
{
constexpr std::size_t EVENT_CAPACITY = 1024;
constexpr int MAX_BATCH = 500;  // then Qt handles the user's events
constexpr auto POLL_INTERVAL = std::chrono::milliseconds(8);
}  // namespace

/// A descriptor that becomes readable when it is signalled.
class GuiWindow::WakeSignal
{
public:
    WakeSignal() : descriptor(eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC)) {}
    ~WakeSignal() { close(descriptor); }
    WakeSignal(const WakeSignal&) = delete;
    WakeSignal& operator=(const WakeSignal&) = delete;

    void set() const
    {
        const std::uint64_t one = 1;
        [[maybe_unused]] const auto written = write(descriptor, &one, sizeof one);
    }
    void reset() const
    {
        std::uint64_t count = 0;
        [[maybe_unused]] const auto taken = read(descriptor, &count, sizeof count);
    }
    int getDescriptor() const { return descriptor; }

private:
    const int descriptor;
};

GuiWindow::GuiWindow(std::function<void(Message&)> handle)
    : handleMessage(std::move(handle)),
      wakeSignal(std::make_shared<WakeSignal>()),
      queue(std::make_shared<MessageQueue>(EVENT_CAPACITY, [signal = wakeSignal] { signal->set(); })),
      notifier(wakeSignal->getDescriptor(), QSocketNotifier::Read)
{
    poll.setSingleShot(true);
    QObject::connect(&notifier, &QSocketNotifier::activated, [this] {
        wakeSignal->reset();
        drain();
    });
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
