#include "gui/framework/InputWatch.h"

#include <chrono>
#include <utility>

#include "api/OrvIF.h"
#include "api/OrvMessageManager.h"

namespace Gui
{
namespace
{
constexpr auto PULL = std::chrono::milliseconds(34);  // up to 30 times a second
}

InputWatch::InputWatch(Backend::OrvIF& orv) : backend(orv)
{
    QObject::connect(&pull, &QTimer::timeout, &pull, [this] { backend.sendReceivedEvents(); });
}

void InputWatch::start(Receiver newReceiver)
{
    receiver = std::move(newReceiver);
    backend.getOrvMessageManager().postWatchMidiInputs(true);
    pull.start(PULL);
}

void InputWatch::stop()
{
    receiver = {};
    pull.stop();
    backend.getOrvMessageManager().postWatchMidiInputs(false);
}

void InputWatch::handleReceivedEvents(const Events& events) const
{
    if (receiver) receiver(events);
}
}  // namespace Gui
