#include "keyboardhook/Capture.h"

#include <utility>

#include "backend/values/Key.h"
#include "keyboardhook/KeyTable.h"
#include "platform/DbgStream.h"

namespace KeyboardHook
{
namespace
{
KeySet makeKeyboard()
{
    KeySet keys;
    for (const auto& place : KeyTable::getPlaces()) keys.set(place.scanCode);
    return keys;
}
const KeySet KEYBOARD_KEYS = makeKeyboard();

struct ModifierKey {
    int virtualKey;
    Modifiers modifier;
};
constexpr ModifierKey MODIFIER_KEYS[] = {
    {Key::LEFT_SHIFT, SHIFT}, {Key::RIGHT_SHIFT, SHIFT}, {Key::LEFT_CONTROL, CONTROL}, {Key::RIGHT_CONTROL, CONTROL},
    {Key::LEFT_ALT, ALT},     {Key::RIGHT_ALT, ALT},     {Key::LEFT_WINDOWS, WIN},     {Key::RIGHT_WINDOWS, WIN}};

std::uint8_t modifiersOf(const KeySet& keys)
{
    int modifiers = 0;
    for (const auto& [virtualKey, modifier] : MODIFIER_KEYS)
        if (keys[KeyTable::scanCodeOf(virtualKey)]) modifiers |= modifier;
    return static_cast<std::uint8_t>(modifiers);
}

template <class Do>
void forEach(const KeySet& keys, Do&& doIt)
{
    for (int key = 0; key < 256; ++key)
        if (keys[key]) doIt(static_cast<std::uint8_t>(key));
}
}  // namespace

Capture::Capture(XServer& xServer, std::function<void()> controlKeyPressed)
    : server(xServer), keyboard(server), focus(server), controlKey(std::move(controlKeyPressed))
{
}

Capture::~Capture() { apply({}); }

void Capture::apply(const HookSettings& newSettings)
{
    // The window that got a press also gets the release.
    postReleases(newSettings.enabled && newSettings.window == settings.window ? down & newSettings.excluded : down);
    controlsDown &= newSettings.controlKeys;
    ungrab();
    if (newSettings.enabled && !settings.enabled) refused.reset();
    settings = newSettings;
    focus.update();
    updateGrabs();
    server.wait();
}

bool Capture::captures(int scanCode) const
{
    return settings.enabled && KEYBOARD_KEYS[scanCode] && !settings.excluded[scanCode];
}

void Capture::updateGrabs()
{
    KeySet wanted = settings.controlKeys;
    if (settings.enabled && !focus.isOwnProcess()) wanted |= KEYBOARD_KEYS & ~settings.excluded;

    keyboard.ungrabKeys(grabbed & ~wanted);
    grabbed &= wanted;
    const KeySet missing = wanted & ~grabbed & ~refused;
    if (missing.any()) {
        const KeySet contested = keyboard.grabKeys(missing);
        reportContested(contested);
        refused |= contested;
        grabbed |= missing & ~contested;
        downBefore |= missing & keyboard.keysDown() & ~down & ~controlsDown;
    }
    downBefore &= grabbed;
}

void Capture::reportContested(const KeySet& keys) const
{
    forEach(keys, [](std::uint8_t key) {
        WindowsLib::DbgStream() << "Global keyboard: another program has the key of scan code " << int{key};
    });
}

void Capture::handle(const xcb_generic_event_t& event)
{
    switch (event.response_type & 0x7F) {
        case XCB_KEY_PRESS:
            pressed(reinterpret_cast<const xcb_key_press_event_t&>(event).detail);
            break;
        case XCB_KEY_RELEASE:
            released(reinterpret_cast<const xcb_key_release_event_t&>(event).detail);
            break;
        default:
            if (focus.handle(event)) updateGrabs();
    }
}

// The server stops after each key event, so every branch replies to it, once.
void Capture::pressed(std::uint8_t scanCode)
{
    if (!hasGrab) {
        const KeySet physical = keyboard.keysDown();  // at this event, since the server stops after it
        downBefore &= physical;
        physicallyDown = (physical & ~grabbed) | down | downBefore;
    }
    physicallyDown.set(scanCode);
    if (settings.controlKeys[scanCode]) {
        keyboard.proceed();
        const bool repeat = controlsDown[scanCode];
        controlsDown.set(scanCode);
        if (!repeat) controlKey();
    } else if (downBefore[scanCode]) {
        keyboard.proceed();
    } else if (captures(scanCode)) {
        post(KEY_DOWN, scanCode, down[scanCode]);
        down.set(scanCode);
        if (hasGrab || !grab()) keyboard.proceed();
    } else {
        replay();
    }
}

void Capture::released(std::uint8_t scanCode)
{
    physicallyDown.reset(scanCode);
    if (!down[scanCode] && !downBefore[scanCode] && !controlsDown[scanCode]) return replay();
    downBefore.reset(scanCode);
    controlsDown.reset(scanCode);
    postReleases(down & KeySet().set(scanCode));
    if (!ungrab()) keyboard.proceed();
}

void Capture::replay()
{
    keyboard.replay();
    hasGrab = false;
    grab();
}

/// While the whole keyboard is grabbed, no captured key is released or repeated in another window.
bool Capture::grab()
{
    if (!hasGrab && down.any()) hasGrab = keyboard.grabKeyboard();
    return hasGrab;
}

bool Capture::ungrab()
{
    if (!hasGrab || (down | controlsDown).any()) return false;
    keyboard.ungrabKeyboard();
    hasGrab = false;
    return true;
}

void Capture::reconcile()
{
    // Once every event is handled and no other has arrived, the physical state is at least as new as the events.
    const KeySet physical = keyboard.keysDown();
    if (server.hasEvent()) return;
    physicallyDown = physical;
    downBefore &= physical;
    controlsDown &= physical;
    postReleases(down & ~physical);
    if (!ungrab()) grab();
}

void Capture::postReleases(const KeySet& keys)
{
    down &= ~keys;
    forEach(keys, [this](std::uint8_t key) { post(KEY_UP, key); });
}

void Capture::post(Number number, std::uint8_t scanCode, bool repeat) const
{
    settings.window.post(KeyEvent{scanCode, modifiersOf(physicallyDown), repeat}.toMessage(number));
}
}  // namespace KeyboardHook
