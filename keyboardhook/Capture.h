#pragma once

#include <functional>

#include "keyboardhook/FocusWatch.h"
#include "keyboardhook/KeyboardHookMessages.h"
#include "keyboardhook/XKeyboard.h"
#include "platform/WindowHandle.h"

namespace KeyboardHook
{
/// The settings of the global keyboard.
struct HookSettings {
    bool enabled = false;
    KeySet excluded;
    KeySet controlKeys;
    WindowHandle window;

    bool needsServer() const { return enabled || controlKeys.any(); }
};

/// Captures the keys of the settings and posts them to the window. Every key that was posted as down is posted as up,
/// also when it stops being captured while it is held. See docs/decisions/0020. One thread.
class Capture
{
public:
    /// `controlKeyPressed` is called for each press of a control key.
    Capture(XServer& xServer, std::function<void()> controlKeyPressed);
    ~Capture();

    Capture(const Capture&) = delete;
    Capture& operator=(const Capture&) = delete;

    void apply(const HookSettings& newSettings);
    void handle(const xcb_generic_event_t& event);

    /// Whether a key counts as down of which the release event may be missed.
    bool needsReconciling() const { return (down | downBefore | controlsDown).any(); }
    /// Compares the keys that count as down with those that are physically down, and posts missed releases. To be
    /// called after events, and at intervals without any.
    void reconcile();

private:
    bool captures(int scanCode) const;
    void updateGrabs();
    void reportContested(const KeySet& keys) const;

    void pressed(std::uint8_t scanCode);
    void released(std::uint8_t scanCode);
    void replay();
    bool grab();
    bool ungrab();
    void postReleases(const KeySet& keys);
    void post(Number number, std::uint8_t scanCode, bool repeat = false) const;

    XServer& server;
    XKeyboard keyboard;
    FocusWatch focus;
    const std::function<void()> controlKey;
    HookSettings settings;

    KeySet grabbed;         ///< granted by the server
    KeySet refused;         ///< refused by the server
    KeySet down;            ///< posted as down
    KeySet downBefore;      ///< were physically down when they were grabbed
    KeySet controlsDown;    ///< control keys
    KeySet physicallyDown;  ///< at the event being handled
    bool hasGrab = false;   ///< of the whole keyboard
};
}  // namespace KeyboardHook
