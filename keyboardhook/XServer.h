#pragma once

#include <xcb/xcb.h>

#include <cstdlib>
#include <deque>
#include <memory>
#include <type_traits>

namespace KeyboardHook
{
/// A connection to the X server of the library's own. It uses XCB because Xlib has one error handler for the whole
/// process: errors here reach no other code, and nothing stays when the library is unloaded. One thread.
class XServer
{
public:
    struct Free {
        void operator()(void* reply) const { std::free(reply); }
    };
    template <class Reply>
    using Owned = std::unique_ptr<Reply, Free>;
    using Event = Owned<xcb_generic_event_t>;

    /// Null if there is no server, or it refuses the connection.
    static std::unique_ptr<XServer> connect();
    ~XServer();

    XServer(const XServer&) = delete;
    XServer& operator=(const XServer&) = delete;

    xcb_connection_t* getConnection() const { return connection; }
    xcb_window_t getRoot() const { return root; }
    int getFileDescriptor() const { return xcb_get_file_descriptor(connection); }

    /// False once the connection is broken.
    bool isAlive() const { return xcb_connection_has_error(connection) == 0; }

    /// The next event, or the error of a request without a reply; null if there is none.
    Event nextEvent();
    /// Whether events, or key events, arrived before the last reply.
    bool hasEvent();
    bool hasKeyEvent();

    /// The reply to a request, null if it failed: `query(xcb_query_keymap, xcb_query_keymap_reply)`.
    template <class Cookie, class Reply, class... Parameters>
    Owned<Reply> query(Cookie (*request)(xcb_connection_t*, Parameters...),
                       Reply* (*takeReply)(xcb_connection_t*, Cookie, xcb_generic_error_t**),
                       std::type_identity_t<Parameters>... arguments)
    {
        xcb_generic_error_t* error = nullptr;
        Owned<Reply> reply(takeReply(connection, request(connection, arguments...), &error));
        std::free(error);
        return reply;
    }

    /// Returns when the server has processed all requests so far.
    void wait() { query(xcb_get_input_focus, xcb_get_input_focus_reply); }

private:
    XServer(xcb_connection_t* opened, xcb_window_t rootWindow) : connection(opened), root(rootWindow) {}

    xcb_connection_t* const connection;
    const xcb_window_t root;
    std::deque<Event> events;  ///< read from the connection and not yet given out
};
}  // namespace KeyboardHook
