#include "keyboardhook/FocusWatch.h"

#include <unistd.h>

#include <cstring>
#include <string_view>

namespace KeyboardHook
{
namespace
{
/// Set by every toolkit on its outermost windows (Extended Window Manager Hints).
constexpr std::string_view PROCESS_PROPERTY = "_NET_WM_PID";

/// The server's values for "none" and "the window under the pointer" are no windows.
bool isWindow(xcb_window_t window) { return window > XCB_INPUT_FOCUS_POINTER_ROOT; }
}  // namespace

FocusWatch::FocusWatch(XServer& xServer) : server(xServer)
{
    const auto atom = server.query(xcb_intern_atom, xcb_intern_atom_reply, 0,
                                   static_cast<std::uint16_t>(PROCESS_PROPERTY.size()), PROCESS_PROPERTY.data());
    if (atom) processProperty = atom->atom;
    watch(server.getRoot(), XCB_EVENT_MASK_FOCUS_CHANGE);
    update();
}

bool FocusWatch::handle(const xcb_generic_event_t& event)
{
    switch (event.response_type & 0x7F) {
        case XCB_FOCUS_IN:
        case XCB_FOCUS_OUT: {
            // A grab of the keyboard sends focus events too, though the focus stays.
            const auto mode = reinterpret_cast<const xcb_focus_in_event_t&>(event).mode;
            if (mode == XCB_NOTIFY_MODE_GRAB || mode == XCB_NOTIFY_MODE_UNGRAB) return false;
            break;
        }
        case XCB_UNMAP_NOTIFY:
        case XCB_DESTROY_NOTIFY:
            break;
        default:
            return false;
    }
    update();
    return true;
}

/// The focus may move while a window is being added to the watch, so it is read again afterwards.
void FocusWatch::update()
{
    for (auto now = focused(); now != window; now = focused()) {
        if (window != server.getRoot()) watch(window, XCB_EVENT_MASK_NO_EVENT);
        window = now;
        if (window != server.getRoot()) watch(window, XCB_EVENT_MASK_FOCUS_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    }
    isOwn = isWindow(window) && belongsToThisProcess(window);
}

xcb_window_t FocusWatch::focused()
{
    const auto reply = server.query(xcb_get_input_focus, xcb_get_input_focus_reply);
    return reply ? reply->focus : xcb_window_t{XCB_WINDOW_NONE};
}

void FocusWatch::watch(xcb_window_t candidate, std::uint32_t events)
{
    if (isWindow(candidate))
        xcb_change_window_attributes(server.getConnection(), candidate, XCB_CW_EVENT_MASK, &events);
}

bool FocusWatch::belongsToThisProcess(xcb_window_t candidate)
{
    while (isWindow(candidate)) {
        const auto property = server.query(xcb_get_property, xcb_get_property_reply, 0, candidate, processProperty,
                                           XCB_ATOM_CARDINAL, 0, 1);
        if (property && property->format == 32 && property->value_len == 1) {
            std::uint32_t process = 0;
            std::memcpy(&process, xcb_get_property_value(property.get()), sizeof process);
            return process == static_cast<std::uint32_t>(getpid());
        }
        const auto tree = server.query(xcb_query_tree, xcb_query_tree_reply, candidate);
        candidate = tree ? tree->parent : xcb_window_t{XCB_WINDOW_NONE};
    }
    return false;
}
}  // namespace KeyboardHook
