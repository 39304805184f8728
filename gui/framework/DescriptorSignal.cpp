#include <sys/eventfd.h>
#include <unistd.h>

#include <QSocketNotifier>
#include <cstdint>
#include <utility>

#include "gui/framework/WakeSignal.h"

namespace Gui
{
struct WakeSignal::Source {
    Source() : descriptor(eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC)) {}
    ~Source() { close(descriptor); }
    Source(const Source&) = delete;
    Source& operator=(const Source&) = delete;

    const int descriptor;
};

WakeSignal::WakeSignal() : source(std::make_unique<Source>()) {}

WakeSignal::~WakeSignal() = default;

void WakeSignal::set() const
{
    const std::uint64_t one = 1;
    [[maybe_unused]] const auto written = write(source->descriptor, &one, sizeof one);
}

std::unique_ptr<QObject> WakeSignal::watch(std::function<void()> woken)
{
    auto notifier = std::make_unique<QSocketNotifier>(source->descriptor, QSocketNotifier::Read);
    QObject::connect(notifier.get(), &QSocketNotifier::activated, [this, call = std::move(woken)] {
        std::uint64_t count = 0;
        [[maybe_unused]] const auto taken = read(source->descriptor, &count, sizeof count);
        call();
    });
    return notifier;
}
}  // namespace Gui
