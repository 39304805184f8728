#include "keyboardhook/Capture.h"

#include <utility>

#include "keyboardhook/KeyTable.h"
#include "platform/DbgStream.h"

namespace KeyboardHook
{
namespace
{
KeySet makeBoard()
{
    KeySet keys;
    for (const auto& place : KeyTable::PLACES) keys.set(place.scanCode);
    return keys;
}
const KeySet BOARD = makeBoard();

struct ModifierKey {
    int virtualKey;
    Modifiers modifier;
};
constexpr ModifierKey MODIFIER_KEYS[] = {{16, SHIFT}, {1, SHIFT}, {17, CONTROL}, {225, CONTROL},
                                         {164, ALT},  {165, ALT}, {91, WIN},     {92, WIN}};

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

void Capture::apply(const Wishes& newWishes)
{
    // Who got a key going down also gets it coming up.
    comeUp(newWishes.enabled && newWishes.window == wishes.window ? down & newWishes.excluded : down);
    controlsDown &= newWishes.controlKeys;
    letGo();
    if (newWishes.enabled && !wishes.enabled) refused.reset();
    wishes = newWishes;
    focus.look();
    takeAndRelease();
    server.wait();
}

bool Capture::takes(int scanCode) const { return wishes.enabled && BOARD[scanCode] && !wishes.excluded[scanCode]; }

void Capture::takeAndRelease()
{
    KeySet wanted = wishes.controlKeys;
    if (wishes.enabled && !focus.isOurs()) wanted |= BOARD & ~wishes.excluded;

    keyboard.release(taken & ~wanted);
    taken &= wanted;
    const KeySet missing = wanted & ~taken & ~refused;
    if (missing.any()) {
        const KeySet contested = keyboard.take(missing);
        complainAbout(contested);
        refused |= contested;
        taken |= missing & ~contested;
        strangers |= missing & keyboard.keysDown() & ~down & ~controlsDown;
    }
    strangers &= taken;
}

void Capture::complainAbout(const KeySet& keys) const
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
            if (focus.take(event)) takeAndRelease();
    }
}

// The server waits behind each event, so every branch answers it, once.
void Capture::pressed(std::uint8_t scanCode)
{
    if (!holding) physicallyDown = (keyboard.keysDown() & ~taken) | down | strangers;
    physicallyDown.set(scanCode);
    if (wishes.controlKeys[scanCode]) {
        keyboard.proceed();
        const bool repeat = controlsDown[scanCode];
        controlsDown.set(scanCode);
        if (!repeat) controlKey();
    } else if (strangers[scanCode]) {
        keyboard.proceed();
    } else if (takes(scanCode)) {
        post(KEY_DOWN, scanCode, down[scanCode]);
        down.set(scanCode);
        if (holding || !hold()) keyboard.proceed();
    } else {
        giveBack();
    }
}

void Capture::released(std::uint8_t scanCode)
{
    physicallyDown.reset(scanCode);
    if (!down[scanCode] && !strangers[scanCode] && !controlsDown[scanCode]) return giveBack();
    strangers.reset(scanCode);
    controlsDown.reset(scanCode);
    comeUp(down & KeySet().set(scanCode));
    if (!letGo()) keyboard.proceed();
}

void Capture::giveBack()
{
    keyboard.giveBack();
    holding = false;
    hold();
}

/// With the keyboard in our hands all the while a taken key is down, none of them comes up, or repeats, elsewhere.
bool Capture::hold()
{
    if (!holding && down.any()) holding = keyboard.hold();
    return holding;
}

bool Capture::letGo()
{
    if (!holding || (down | controlsDown).any()) return false;
    keyboard.letGo();
    holding = false;
    return true;
}

void Capture::reconcile()
{
    // With every event answered and none come since, what is physically down is what the events have said, and more.
    const KeySet physical = keyboard.keysDown();
    if (server.hasEvent()) return;
    physicallyDown = physical;
    strangers &= physical;
    controlsDown &= physical;
    comeUp(down & ~physical);
    if (!letGo()) hold();
}

void Capture::comeUp(const KeySet& keys)
{
    down &= ~keys;
    forEach(keys, [this](std::uint8_t key) { post(KEY_UP, key); });
}

void Capture::post(Number number, std::uint8_t scanCode, bool repeat) const
{
    wishes.window.post(KeyEvent{scanCode, modifiersOf(physicallyDown), repeat}.toMessage(number));
}
}  // namespace KeyboardHook
