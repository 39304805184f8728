#pragma once

#include "keyboardhook/XServer.h"

namespace KeyboardHook
{
/// Follows which window has the keyboard focus, and knows whether it is one of our own process.
class FocusWatch
{
public:
    explicit FocusWatch(XServer& xServer);

    bool isOurs() const { return ours; }

    /// True if the event says that the focus went elsewhere; `isOurs` then answers for the new window.
    bool take(const xcb_generic_event_t& event);

    /// Looks for itself, without waiting for an event.
    void look();

private:
    xcb_window_t focused();
    void watch(xcb_window_t candidate, std::uint32_t events);
    bool isOfThisProcess(xcb_window_t candidate);

    XServer& server;
    xcb_atom_t processProperty = XCB_ATOM_NONE;
    xcb_window_t window = XCB_WINDOW_NONE;
    bool ours = false;
};
}  // namespace KeyboardHook
