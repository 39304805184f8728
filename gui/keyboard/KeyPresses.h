#pragma once

#include <map>
#include <vector>

#include "backend/values/Key.h"

namespace Gui
{
/// The keys that are down, by whatever road they came, so that each goes down once, repeats while it is held, and comes
/// up exactly once. Knows nothing of the toolkit. The GUI thread.
class KeyPresses
{
public:
    /// From where a key came. Who let it go down also lets it come up, unless another pressed it meanwhile.
    enum class Road {
        window,  ///< it was typed into our window
        hook,    ///< it was typed into another program's, and the global keyboard took it
        picture  ///< the mouse is on it
    };

    class Listener
    {
    public:
        virtual ~Listener() = default;
        virtual void keyDown(const Key& key, bool isRepeat) = 0;
        /// With the modifiers of this moment.
        virtual void keyUp(const Key& key) = 0;
        /// For a picture: a code goes down or comes up, also where nobody is told of it.
        virtual void showKey(int keyCode, bool down) = 0;
    };

    explicit KeyPresses(Listener& keyListener) : listener(keyListener) {}

    /// `key` has the modifiers that are held, itself or not. A key that is down already repeats; a repeat of one that
    /// is not down, and a key without a code, is nothing. Shift while another key is held is a chord with it and no key
    /// of its own.
    void press(Road road, const Key& key, bool isRepeat = false);
    /// Nothing for a key that did not go down on that road. Of the left Windows key nobody but the picture is told:
    /// desktops open their menu with it.
    void release(Road road, const Key& key);

    /// Each with the modifiers that it went down with, so that its release finds what its press did.
    void releaseAll(Road road);

    /// A key that was down before we were told of keys: until it comes up it is no key of ours.
    void ignoreUntilReleased(int keyCode);

    /// The codes that are down, those ignored among them.
    std::vector<int> getCodesDown(Road road) const;

    /// Which modifier a key is, null for any other key.
    static bool Key::*modifierOf(int keyCode);

private:
    struct Press {
        Road road;
        Key key;
        bool ignored = false;
    };
    using Presses = std::map<int, Press>;

    bool isChordWith(const Key& shift) const;
    bool isHeld(bool Key::*modifier) const;
    void releaseLostModifiers(Road road, const Key& held);
    void comeUp(Presses::iterator press, const Key& key);

    Listener& listener;
    Presses presses;  // by code
};
}  // namespace Gui
