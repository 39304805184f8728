#pragma once

#include <sys/types.h>
#include <xcb/xcb.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace KeyboardHook
{
using Connection = std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)>;

/// An X server of our own that nobody sees. While it lives, DISPLAY is its name. Held keys repeat soon.
class PrivateDisplay
{
public:
    static bool isInstalled();

    PrivateDisplay();
    ~PrivateDisplay() { end(); }

    PrivateDisplay(const PrivateDisplay&) = delete;
    PrivateDisplay& operator=(const PrivateDisplay&) = delete;

    void end();

    /// Fingers on its keyboard, by the names of keys.
    void press(const std::string& key) { move(key, XCB_KEY_PRESS); }
    void release(const std::string& key) { move(key, XCB_KEY_RELEASE); }
    void tap(const std::string& key)
    {
        press(key);
        release(key);
    }

private:
    void move(const std::string& key, std::uint8_t type);

    pid_t process = -1;
    Connection fingers{nullptr, &xcb_disconnect};
};

/// A program with a window that writes down which keys it gets: Q< where one goes down, Q> where it comes up.
class Program
{
public:
    enum class Whose { another, ours };

    explicit Program(Whose whose = Whose::another);

    /// Its window gets the focus.
    void focus();
    /// It takes a key for itself, wherever the focus is.
    void take(const std::string& key, std::uint16_t modifiers);

    /// What it got so far, after waiting for as much as is expected.
    const std::string& typed(const std::string& expected);

private:
    void read();

    Connection connection{nullptr, &xcb_disconnect};
    xcb_window_t root = 0;
    xcb_window_t window = 0;
    std::string text;
};

/// The name of a key, with those of the modifiers in front.
std::string nameOf(std::uint8_t scanCode, std::uint8_t modifiers = 0);

/// Whether it comes true before patience ends.
bool waitUntil(const std::function<bool()>& condition);
}  // namespace KeyboardHook
