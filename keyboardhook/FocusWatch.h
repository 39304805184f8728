#pragma once

#include "keyboardhook/XServer.h"

namespace KeyboardHook
{
/// Follows which window has the keyboard focus, and whether it belongs to this process.
class FocusWatch
{
public:
    explicit FocusWatch(XServer& xServer);

    bool isOwnProcess() const { return isOwn; }

    /// True if the event says that the focus has moved; `isOwnProcess` then refers to the new window.
    bool handle(const xcb_generic_event_t& event);

    /// Reads the focus from the server, without an event.
    void update();

private:
    xcb_window_t focused();
    void watch(xcb_window_t candidate, std::uint32_t events);
    bool belongsToThisProcess(xcb_window_t candidate);

    XServer& server;
    xcb_atom_t processProperty = XCB_ATOM_NONE;
    xcb_window_t window = XCB_WINDOW_NONE;
    bool isOwn = false;
};
}  // namespace KeyboardHook
