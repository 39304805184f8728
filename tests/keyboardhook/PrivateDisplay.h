#pragma once

#include <signal.h>
#include <unistd.h>
#include <xcb/xcb.h>
#include <xcb/xtest.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "tests/keyboardhook/KeyTexts.h"

/// A client of the X server that DISPLAY names.
class Client
{
public:
    /// Until the server has done all that was asked for.
    void waitForAnswer() { std::free(xcb_get_input_focus_reply(get(), xcb_get_input_focus(get()), nullptr)); }
    xcb_connection_t* get() const { return connection.get(); }

private:
    std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)> connection{xcb_connect(nullptr, nullptr),
                                                                            &xcb_disconnect};
};

/// An X server of our own that nobody sees. While it lives, DISPLAY is its name.
class PrivateDisplay
{
public:
    static bool isInstalled() { return ::access("/usr/bin/Xvfb", X_OK) == 0; }

    PrivateDisplay()
    {
        // Ends by itself with its last client, should we end before.
        server = ::popen(
            "echo $$; exec /usr/bin/Xvfb -displayfd 1 -nolisten tcp -terminate -screen 0 320x240x24"
            " -ardelay 100 -arinterval 20 2>/dev/null",
            "re");
        int number = 0;
        if (server == nullptr || std::fscanf(server, "%d %d", &process, &number) != 2)
            throw std::runtime_error("Xvfb does not start");
        ::setenv("DISPLAY", (":" + std::to_string(number)).c_str(), 1);
        fingers = std::make_unique<Client>();
        repeatKeys(false);
    }
    ~PrivateDisplay() { end(); }
    PrivateDisplay(const PrivateDisplay&) = delete;
    PrivateDisplay& operator=(const PrivateDisplay&) = delete;

    void end()
    {
        if (server == nullptr) return;
        ::kill(process, SIGTERM);
        ::pclose(std::exchange(server, nullptr));
        ::unsetenv("DISPLAY");
    }

    /// Whether held keys repeat, soon. A busy machine may hold a key that long although a test releases it at once.
    void repeatKeys(bool on)
    {
        const std::uint32_t mode = on ? XCB_AUTO_REPEAT_MODE_ON : XCB_AUTO_REPEAT_MODE_OFF;
        xcb_change_keyboard_control(fingers->get(), XCB_KB_AUTO_REPEAT_MODE, &mode);
        fingers->waitForAnswer();
    }

    /// Plays on its keyboard.
    void play(const std::string& keys)
    {
        forEachKey(keys, [this](std::uint8_t scanCode, bool isDown) {
            xcb_test_fake_input(fingers->get(), isDown ? XCB_KEY_PRESS : XCB_KEY_RELEASE, scanCode, XCB_CURRENT_TIME,
                                XCB_NONE, 0, 0, 0);
            fingers->waitForAnswer();
        });
    }

private:
    std::FILE* server = nullptr;
    pid_t process = -1;
    std::unique_ptr<Client> fingers;
};

/// A program with a window that writes down which keys it gets: Q< where one goes down, Q> where it comes up.
class Program
{
public:
    enum class Whose { another, ours };

    explicit Program(Whose whose = Whose::another)
    {
        auto* const to = client.get();
        const xcb_screen_t* const screen = xcb_setup_roots_iterator(xcb_get_setup(to)).data;
        root = screen->root;
        window = xcb_generate_id(to);
        const std::uint32_t events = XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_KEY_RELEASE;
        xcb_create_window(to, XCB_COPY_FROM_PARENT, window, root, 0, 0, 100, 100, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
                          screen->root_visual, XCB_CW_EVENT_MASK, &events);
        constexpr std::string_view PROPERTY = "_NET_WM_PID";
        auto* const atom = xcb_intern_atom_reply(to, xcb_intern_atom(to, 0, PROPERTY.size(), PROPERTY.data()), nullptr);
        const auto process = static_cast<std::uint32_t>(whose == Whose::ours ? ::getpid() : ::getppid());
        xcb_change_property(to, XCB_PROP_MODE_REPLACE, window, atom->atom, XCB_ATOM_CARDINAL, 32, 1, &process);
        std::free(atom);
        xcb_map_window(to, window);
        focus();
    }

    /// Its window gets the focus.
    void focus()
    {
        xcb_set_input_focus(client.get(), XCB_INPUT_FOCUS_PARENT, window, XCB_CURRENT_TIME);
        client.waitForAnswer();
    }
    /// It takes a key for itself, wherever the focus is.
    void take(const std::string& key, std::uint16_t modifiers)
    {
        xcb_grab_key(client.get(), 0, root, modifiers, scanCodeOf(key), XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
        client.waitForAnswer();
    }

    /// What it got so far.
    const std::string& received()
    {
        while (xcb_generic_event_t* const event = xcb_poll_for_event(client.get())) {
            const int type = event->response_type & 0x7F;
            if (type == XCB_KEY_PRESS || type == XCB_KEY_RELEASE)
                text += nameOf(reinterpret_cast<const xcb_key_press_event_t*>(event)->detail) +
                        (type == XCB_KEY_PRESS ? '<' : '>');
            std::free(event);
        }
        return text;
    }

private:
    Client client;
    xcb_window_t root = 0;
    xcb_window_t window = 0;
    std::string text;
};
