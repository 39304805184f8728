#pragma once

#include <xcb/xcb.h>

#include <cstdlib>
#include <deque>
#include <memory>
#include <type_traits>

namespace KeyboardHook
{
/// A connection of our own to the X server. Through XCB, which keeps no handlers of errors for the whole process: what
/// goes wrong here is seen by nobody else, and nothing is left behind when the library is unloaded. One thread's own.
class XServer
{
public:
    struct Free {
        void operator()(void* reply) const { std::free(reply); }
    };
    template <class Reply>
    using Owned = std::unique_ptr<Reply, Free>;
    using Event = Owned<xcb_generic_event_t>;

    /// Null if there is none, or it lets nobody in.
    static std::unique_ptr<XServer> connect();
    ~XServer();

    XServer(const XServer&) = delete;
    XServer& operator=(const XServer&) = delete;

    xcb_connection_t* getConnection() const { return connection; }
    xcb_window_t getRoot() const { return root; }
    int getFileDescriptor() const { return xcb_get_file_descriptor(connection); }

    /// False once the server has gone.
    bool isAlive() const { return xcb_connection_has_error(connection) == 0; }

    /// What came and was not asked for, errors included; null if nothing has.
    Event nextEvent();
    /// Whether there are events, or keys among them, that came before the last answer did.
    bool hasEvent();
    bool hasKeyEvent();

    /// The answer to a request, null if it failed: `ask(xcb_query_keymap, xcb_query_keymap_reply)`.
    template <class Cookie, class Reply, class... Parameters>
    Owned<Reply> ask(Cookie (*request)(xcb_connection_t*, Parameters...),
                     Reply* (*takeReply)(xcb_connection_t*, Cookie, xcb_generic_error_t**),
                     std::type_identity_t<Parameters>... arguments)
    {
        xcb_generic_error_t* error = nullptr;
        Owned<Reply> reply(takeReply(connection, request(connection, arguments...), &error));
        std::free(error);
        return reply;
    }

    /// Until the server has done all that was asked so far.
    void wait() { ask(xcb_get_input_focus, xcb_get_input_focus_reply); }

private:
    XServer(xcb_connection_t* opened, xcb_window_t rootWindow) : connection(opened), root(rootWindow) {}

    xcb_connection_t* const connection;
    const xcb_window_t root;
    std::deque<Event> events;  ///< those that were looked through
};
}  // namespace KeyboardHook
