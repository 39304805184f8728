#pragma once

#include <bitset>
#include <cstdint>
#include <vector>

#include "keyboardhook/XServer.h"

namespace KeyboardHook
{
/// Keys by their scan codes.
using KeySet = std::bitset<256>;

/// Grabs keys on an X server. The press of a grabbed key grabs the whole keyboard until that key is released, and the
/// server stops after each key event until it gets a reply, so an event can still be replayed to the window that would
/// have got it. Every key event needs one reply: `proceed`, `replay`, `grabKeyboard` or `ungrabKeyboard`.
class XKeyboard
{
public:
    explicit XKeyboard(XServer& xServer);

    /// From now on these keys send their events here, whatever window has the focus. Returns those that are not granted
    /// because other programs have them. A key that another program has with some modifiers is granted with all others.
    KeySet grabKeys(const KeySet& keys);
    void ungrabKeys(const KeySet& keys);

    /// All keys send their events here until `ungrabKeyboard`, also after the release of the key that began it. False
    /// if another program has the keyboard.
    bool grabKeyboard();
    void ungrabKeyboard();

    /// Lets the server send the next event.
    void proceed();
    /// Sends the event to the window that would have got it, and ends the grab of the keyboard.
    void replay();

    /// The keys that are physically down.
    KeySet keysDown();

private:
    KeySet tryGrab(const KeySet& keys, const std::vector<std::uint16_t>& modifiers);
    std::vector<std::uint16_t> combinations();
    void allow(std::uint8_t mode);

    XServer& server;
};
}  // namespace KeyboardHook
