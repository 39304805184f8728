#pragma once

#include <QTimer>

class QKeyEvent;

namespace Gui
{
class KeyPresses;

/// Brings the toolkit's key events of a window to the keys that are down. Where it can be known which keys are
/// physically down, a key that came up unseen, because the desktop took its release, does not stay down. The GUI
/// thread.
class KeyInput
{
public:
    explicit KeyInput(KeyPresses& keyPresses);

    KeyInput(const KeyInput&) = delete;
    KeyInput& operator=(const KeyInput&) = delete;

    void press(const QKeyEvent& event);
    void release(const QKeyEvent& event);

    /// The window's keys come to us from now on; those that are down already are not ours.
    void focusCame();
    /// They go elsewhere, be it to another window, a text or a menu: whatever is down comes up.
    void focusWent();

private:
    void releaseWhatIsUp();

    KeyPresses& presses;
    QTimer watch;
};
}  // namespace Gui
