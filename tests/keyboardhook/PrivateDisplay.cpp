#include "tests/keyboardhook/PrivateDisplay.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>
#include <xcb/xtest.h>

#include <chrono>
#include <cstdlib>
#include <stdexcept>
#include <thread>

#include "backend/values/Key.h"
#include "keyboardhook/KeyTable.h"

extern char** environ;

namespace KeyboardHook
{
namespace
{
constexpr const char* XVFB = "/usr/bin/Xvfb";

std::uint8_t scanCodeOf(const std::string& key)
{
    for (const auto& place : KeyTable::PLACES)
        if (nameOf(place.scanCode) == key) return place.scanCode;
    throw std::invalid_argument(key);
}

/// The number of its display once it answers, empty if it does not.
std::string readLine(int descriptor)
{
    std::string line;
    for (char c = 0; ::read(descriptor, &c, 1) == 1 && c != '\n';) line += c;
    return line;
}

Connection connect() { return {xcb_connect(nullptr, nullptr), &xcb_disconnect}; }

void waitForAnswer(xcb_connection_t* connection)
{
    std::free(xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
}
}  // namespace

std::string nameOf(std::uint8_t scanCode, std::uint8_t modifiers)
{
    const auto code = static_cast<std::uint32_t>(KeyTable::virtualKeyAt(scanCode));
    return Key::fromPacked(code | std::uint32_t{modifiers} << 8).toXmlString();
}

bool waitUntil(const std::function<bool()>& condition)
{
    using namespace std::chrono_literals;
    for (const auto start = std::chrono::steady_clock::now(); !condition();) {
        if (std::chrono::steady_clock::now() - start > 10s) return false;
        std::this_thread::sleep_for(1ms);
    }
    return true;
}

bool PrivateDisplay::isInstalled() { return ::access(XVFB, X_OK) == 0; }

PrivateDisplay::PrivateDisplay()
{
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, ends[1], 3);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    // Ends by itself with its last client, should we end before.
    const char* arguments[] = {XVFB, "-displayfd", "3",        "-nolisten", "tcp",         "-terminate", "-screen",
                               "0",  "320x240x24", "-ardelay", "100",       "-arinterval", "20",         nullptr};
    const int failure = ::posix_spawn(&process, XVFB, &actions, nullptr, const_cast<char**>(arguments), environ);
    posix_spawn_file_actions_destroy(&actions);
    ::close(ends[1]);
    const std::string number = failure == 0 ? readLine(ends[0]) : "";
    ::close(ends[0]);
    if (number.empty()) throw std::runtime_error("Xvfb does not start");
    ::setenv("DISPLAY", (":" + number).c_str(), 1);
    fingers = connect();
}

void PrivateDisplay::end()
{
    if (process <= 0) return;
    ::kill(process, SIGTERM);
    ::waitpid(process, nullptr, 0);
    process = -1;
    ::unsetenv("DISPLAY");
}

void PrivateDisplay::move(const std::string& key, std::uint8_t type)
{
    xcb_test_fake_input(fingers.get(), type, scanCodeOf(key), XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
    waitForAnswer(fingers.get());
}

Program::Program(Whose whose) : connection(connect())
{
    const xcb_screen_t* const screen = xcb_setup_roots_iterator(xcb_get_setup(connection.get())).data;
    root = screen->root;
    window = xcb_generate_id(connection.get());
    const std::uint32_t events = XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_KEY_RELEASE;
    xcb_create_window(connection.get(), XCB_COPY_FROM_PARENT, window, root, 0, 0, 100, 100, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, screen->root_visual, XCB_CW_EVENT_MASK, &events);
    constexpr std::string_view PROPERTY = "_NET_WM_PID";
    const std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)> atom(
        xcb_intern_atom_reply(connection.get(), xcb_intern_atom(connection.get(), 0, PROPERTY.size(), PROPERTY.data()),
                              nullptr),
        &std::free);
    const auto process = static_cast<std::uint32_t>(whose == Whose::ours ? ::getpid() : ::getppid());
    xcb_change_property(connection.get(), XCB_PROP_MODE_REPLACE, window, atom->atom, XCB_ATOM_CARDINAL, 32, 1,
                        &process);
    xcb_map_window(connection.get(), window);
    focus();
}

void Program::focus()
{
    xcb_set_input_focus(connection.get(), XCB_INPUT_FOCUS_PARENT, window, XCB_CURRENT_TIME);
    waitForAnswer(connection.get());
}

void Program::take(const std::string& key, std::uint16_t modifiers)
{
    xcb_grab_key(connection.get(), 0, root, modifiers, scanCodeOf(key), XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    waitForAnswer(connection.get());
}

const std::string& Program::typed(const std::string& expected)
{
    waitUntil([&] {
        read();
        return text.size() >= expected.size();
    });
    return text;
}

void Program::read()
{
    while (xcb_generic_event_t* const event = xcb_poll_for_event(connection.get())) {
        const int type = event->response_type & 0x7F;
        if (type == XCB_KEY_PRESS || type == XCB_KEY_RELEASE)
            text += nameOf(reinterpret_cast<const xcb_key_press_event_t*>(event)->detail) +
                    (type == XCB_KEY_PRESS ? '<' : '>');
        std::free(event);
    }
}
}  // namespace KeyboardHook
