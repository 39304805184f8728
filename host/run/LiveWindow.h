#pragma once

#include <memory>
#include <string>

#include "api/OrvIF.h"
#include "backend/display/DisplayListener.h"
#include "host/common/Report.h"
#include "platform/WindowHandle.h"
#include "platform/Worker.h"

namespace Host
{
/// What stands where a window would be while there is none: a thread that takes what the backend tells a window. Output
/// events go on to the display, and the user hears in a line what became of a saved record.
class LiveWindow
{
public:
    explicit LiveWindow(Report reportLine);
    ~LiveWindow() { close(); }
    LiveWindow(const LiveWindow&) = delete;
    LiveWindow& operator=(const LiveWindow&) = delete;

    WindowHandle getHandle() const { return WindowHandle(std::shared_ptr<MessageQueue>(worker, &worker->queue())); }

    /// Becomes the backend's window, until `close`. Once.
    void showEventsOf(Backend::OrvIF& orv);

    bool isAtRest() const { return worker->rest().resting; }

    /// Ends the thread behind whatever was posted before.
    void close() { worker->stop(); }

private:
    void handleMessage(Message& message) const;

    const Report report;
    Backend::OrvIF* shown = nullptr;
    std::shared_ptr<Worker> worker;  // last: its thread ends before what it works on goes
};

/// Prints the display's text on standard output.
class LiveDisplay final : public Backend::Display::DisplayListener
{
public:
    void addText(const char* text) override;
    void setText(const char* text) override { addText(text); }
};
}  // namespace Host
