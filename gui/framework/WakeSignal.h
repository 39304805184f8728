#pragma once

#include <QObject>
#include <functional>
#include <memory>

namespace Gui
{
/// Wakes Qt's event loop from any thread, a time slice included, by one call of the system.
class WakeSignal
{
public:
    WakeSignal();
    ~WakeSignal();
    WakeSignal(const WakeSignal&) = delete;
    WakeSignal& operator=(const WakeSignal&) = delete;

    /// Any thread. Several before the loop is woken count as one.
    void set() const;

    /// While the result exists, which must not outlive this, the event loop of the calling thread calls `woken`.
    std::unique_ptr<QObject> watch(std::function<void()> woken);

private:
    struct Source;
    const std::unique_ptr<Source> source;
};
}  // namespace Gui
