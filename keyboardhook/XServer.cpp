#include "keyboardhook/XServer.h"

#include <algorithm>
#include <utility>

namespace KeyboardHook
{
namespace
{
const xcb_screen_t* screenOf(xcb_connection_t* connection, int number)
{
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    while (number-- > 0 && screens.rem > 1) xcb_screen_next(&screens);
    return screens.rem > 0 ? screens.data : nullptr;
}
}  // namespace

std::unique_ptr<XServer> XServer::connect()
{
    int screenNumber = 0;
    xcb_connection_t* const connection = xcb_connect(nullptr, &screenNumber);
    const xcb_screen_t* const screen =
        xcb_connection_has_error(connection) == 0 ? screenOf(connection, screenNumber) : nullptr;
    if (screen == nullptr) {
        xcb_disconnect(connection);
        return nullptr;
    }
    return std::unique_ptr<XServer>(new XServer(connection, screen->root));
}

XServer::Event XServer::nextEvent()
{
    if (events.empty()) return Event(xcb_poll_for_event(connection));
    Event oldest = std::move(events.front());
    events.pop_front();
    return oldest;
}

bool XServer::hasEvent()
{
    while (auto* const event = xcb_poll_for_queued_event(connection)) events.emplace_back(event);
    return !events.empty();
}

bool XServer::hasKeyEvent()
{
    return hasEvent() && std::any_of(events.begin(), events.end(), [](const Event& event) {
               const int type = event->response_type & 0x7F;
               return type == XCB_KEY_PRESS || type == XCB_KEY_RELEASE;
           });
}

XServer::~XServer() { xcb_disconnect(connection); }
}  // namespace KeyboardHook
