#pragma once

#include <QTimer>

class QKeyEvent;

namespace Gui
{
class KeyPresses;

/// Passes Qt's key events of a window to `KeyPresses`. Where the platform reports which keys are physically down, a key
/// whose release the desktop took is released as well. The GUI thread.
class KeyInput
{
public:
    explicit KeyInput(KeyPresses& keyPresses);

    KeyInput(const KeyInput&) = delete;
    KeyInput& operator=(const KeyInput&) = delete;

    void press(const QKeyEvent& event);
    void release(const QKeyEvent& event);

    /// The window gets the keys from now on; those that are down already are ignored until they are released.
    void focusGained();
    /// Another window, a text or a menu gets the keys: those that are down are released.
    void focusLost();

private:
    void releaseMissedKeys();

    KeyPresses& presses;
    QTimer watch;
};
}  // namespace Gui
