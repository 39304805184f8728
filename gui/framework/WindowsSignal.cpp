#include <windows.h>

#include <QWinEventNotifier>
#include <utility>

#include "gui/framework/WakeSignal.h"

namespace Gui
{
struct WakeSignal::Source {
    Source() : event(CreateEventW(nullptr, FALSE, FALSE, nullptr)) {}
    ~Source() { CloseHandle(event); }
    Source(const Source&) = delete;
    Source& operator=(const Source&) = delete;

    const HANDLE event;
};

WakeSignal::WakeSignal() : source(std::make_unique<Source>()) {}

WakeSignal::~WakeSignal() = default;

void WakeSignal::set() const { SetEvent(source->event); }

std::unique_ptr<QObject> WakeSignal::watch(std::function<void()> woken)
{
    auto notifier = std::make_unique<QWinEventNotifier>(source->event);
    QObject::connect(notifier.get(), &QWinEventNotifier::activated, std::move(woken));
    return notifier;
}
}  // namespace Gui
