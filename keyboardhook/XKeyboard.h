#pragma once

#include <bitset>
#include <cstdint>
#include <vector>

#include "keyboardhook/XServer.h"

namespace KeyboardHook
{
/// Keys by their scan codes.
using KeySet = std::bitset<256>;

/// Takes keys on an X server. A press of a key that was taken gives us the whole keyboard until that key comes up, and
/// stops it behind each event until we say how it goes on: so a key that is not ours can be given back as if it had
/// never passed us. Every event must therefore be answered, by `proceed`, `giveBack`, `hold` or `letGo`.
class XKeyboard
{
public:
    explicit XKeyboard(XServer& xServer);

    /// From now on these keys come to us, whatever window has the focus. Returns those that do not because other
    /// programs have them. Where they have a key with some modifiers only, it comes to us with the others.
    KeySet take(const KeySet& keys);
    void release(const KeySet& keys);

    /// Whatever is pressed comes to us until `letGo`, though the key that began it comes up. False if another program
    /// is at it.
    bool hold();
    void letGo();

    void proceed();
    /// Lets the event go to the window that it would have gone to, and ends `hold`.
    void giveBack();

    /// What is physically down.
    KeySet keysDown();

private:
    KeySet request(const KeySet& keys, const std::vector<std::uint16_t>& modifiers);
    std::vector<std::uint16_t> combinations();
    void allow(std::uint8_t mode);

    XServer& server;
};
}  // namespace KeyboardHook
