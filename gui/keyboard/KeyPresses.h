#pragma once

#include <map>
#include <vector>

#include "backend/values/Key.h"

namespace Gui
{
/// The keys that are down, from all sources, so that each is pressed once, repeats while it is held, and is released
/// exactly once. Independent of Qt. The GUI thread. See docs/behaviour/keyboard.md.
class KeyPresses
{
public:
    /// The sources of key events. A key is released by the source that pressed it last.
    enum class Source {
        window,  ///< typed into our window
        hook,    ///< typed into another program and intercepted by the global keyboard
        picture  ///< pressed with the mouse on the picture of the keyboard
    };

    class Listener
    {
    public:
        virtual ~Listener() = default;
        virtual void keyDown(const Key& key, bool isRepeat) = 0;
        /// `key` has the modifiers that are held at the release.
        virtual void keyUp(const Key& key) = 0;
        /// For the picture of the keyboard: a key goes down or up, also one for which `keyDown` or `keyUp` is not
        /// called.
        virtual void showKey(int keyCode, bool down) = 0;
    };

    explicit KeyPresses(Listener& keyListener) : listener(keyListener) {}

    /// `key` has the modifiers that are held; for a modifier key its own may be set or not. A key that is down already
    /// repeats. A repeat of a key that is not down and a key without a code are ignored. Shift while a key other than
    /// Shift and Control is held belongs to a chord and is not played.
    void press(Source source, const Key& key, bool isRepeat = false);
    /// Ignored for a key that this source did not press. The release of the left Windows key goes to `showKey` only:
    /// desktops open their menu with it.
    void release(Source source, const Key& key);

    /// Each with the modifiers of its press, so that its release finds the functions of its press.
    void releaseAll(Source source);

    /// Ignores a key that was down before the window got the keys, until it is released.
    void ignoreUntilReleased(int keyCode);

    /// The codes of the keys that are down, ignored ones included.
    std::vector<int> getCodesDown(Source source) const;

private:
    struct Press {
        Source source;
        Key key;
        bool ignored = false;
    };
    using Presses = std::map<int, Press>;

    bool isChordWith(const Key& shift) const;
    bool isHeld(bool Key::*modifier) const;
    void releaseLostModifiers(Source source, const Key& held);
    void endPress(Presses::iterator press, const Key& key);

    Listener& listener;
    Presses presses;  // by code
};
}  // namespace Gui
