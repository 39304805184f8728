#pragma once

#include <functional>

#include "keyboardhook/FocusWatch.h"
#include "keyboardhook/KeyboardHookMessages.h"
#include "keyboardhook/XKeyboard.h"
#include "platform/WindowHandle.h"

namespace KeyboardHook
{
/// What is asked of the global keyboard.
struct Wishes {
    bool enabled = false;
    KeySet excluded;
    KeySet controlKeys;
    WindowHandle window;

    bool needServer() const { return enabled || controlKeys.any(); }
};

/// Takes the keys that are wished for and posts them. Every key that was posted as down is posted as up, whatever
/// happens to it. One thread's own.
class Capture
{
public:
    /// `controlKeyPressed` is called for each press of a control key.
    Capture(XServer& xServer, std::function<void()> controlKeyPressed);
    ~Capture();

    Capture(const Capture&) = delete;
    Capture& operator=(const Capture&) = delete;

    void apply(const Wishes& newWishes);
    void handle(const xcb_generic_event_t& event);

    /// Whether a key counts as down that may come up unseen.
    bool needsReconciling() const { return (down | strangers | controlsDown).any(); }
    /// Compares what counts as down with what is. To be called after events, and now and again without any.
    void reconcile();

private:
    bool takes(int scanCode) const;
    void takeAndRelease();
    void complainAbout(const KeySet& keys) const;

    void pressed(std::uint8_t scanCode);
    void released(std::uint8_t scanCode);
    void giveBack();
    bool hold();
    bool letGo();
    void comeUp(const KeySet& keys);
    void post(Number number, std::uint8_t scanCode, bool repeat = false) const;

    XServer& server;
    XKeyboard keyboard;
    FocusWatch focus;
    const std::function<void()> controlKey;
    Wishes wishes;

    KeySet taken;           ///< what the server gives us
    KeySet refused;         ///< what it would not
    KeySet down;            ///< posted as down
    KeySet strangers;       ///< were down before they were taken
    KeySet controlsDown;    ///< control keys
    KeySet physicallyDown;  ///< at the event being handled
    bool holding = false;
};
}  // namespace KeyboardHook
