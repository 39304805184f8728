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
constexpr std::size_t ROOM_FOR_EVENTS = 1024;
constexpr int MOST_AT_ONCE = 500;  // then the user's own events have their turn
constexpr auto PAUSE = std::chrono::milliseconds(8);
}  // namespace

class GuiWindow::Bell
{
public:
    Bell() : descriptor(eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC)) {}
    ~Bell() { close(descriptor); }
    Bell(const Bell&) = delete;
    Bell& operator=(const Bell&) = delete;

    void ring() const
    {
        const std::uint64_t one = 1;
        [[maybe_unused]] const auto written = write(descriptor, &one, sizeof one);
    }
    void silence() const
    {
        std::uint64_t rung = 0;
        [[maybe_unused]] const auto taken = read(descriptor, &rung, sizeof rung);
    }
    int get() const { return descriptor; }

private:
    const int descriptor;
};

GuiWindow::GuiWindow(std::function<void(Message&)> handle)
    : handleMessage(std::move(handle)),
      bell(std::make_shared<Bell>()),
      queue(std::make_shared<MessageQueue>(ROOM_FOR_EVENTS, [rung = bell] { rung->ring(); })),
      notifier(bell->get(), QSocketNotifier::Read)
{
    again.setSingleShot(true);
    QObject::connect(&notifier, &QSocketNotifier::activated, [this] {
        bell->silence();
        drain();
    });
    QObject::connect(&again, &QTimer::timeout, [this] { drain(); });
    if (!queue->fallAsleep()) again.start(PAUSE);
}

GuiWindow::~GuiWindow() { queue->close(); }

/// While messages come it looks again by itself; only when none came it asks to be woken.
void GuiWindow::drain()
{
    int handled = 0;
    while (handled < MOST_AT_ONCE && queue->handleNext([this](Message& message) { handleMessage(message); })) ++handled;
    if (handled == MOST_AT_ONCE)
        again.start(0);
    else if (handled > 0 || !queue->fallAsleep())
        again.start(PAUSE);
}
}  // namespace Gui
