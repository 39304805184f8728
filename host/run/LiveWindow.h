#pragma once

#include <memory>
#include <string>

#include "api/DisplayListener.h"
#include "api/OrvIF.h"
#include "host/common/Report.h"
#include "platform/WindowHandle.h"
#include "platform/Worker.h"

namespace Host
{
/// Receives, on a thread of its own, the messages that the backend sends to a window, where there is no window: output
/// events are passed to the display, and the result of saving the record is reported.
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

    /// Ends the thread when it has handled all messages posted before.
    void close() { worker->stop(); }

private:
    void handleMessage(Message& message) const;

    const Report report;
    Backend::OrvIF* shown = nullptr;
    std::shared_ptr<Worker> worker;  // last, so that its thread ends before the members that it uses are destroyed
};

/// Prints the display's text on standard output.
class LiveDisplay final : public Backend::Display::DisplayListener
{
public:
    void addText(const char* text) override;
    void setText(const char* text) override { addText(text); }
};
}  // namespace Host
