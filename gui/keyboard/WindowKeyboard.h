#pragma once

#include <QObject>
#include <functional>

#include "gui/framework/KeyTarget.h"
#include "gui/keyboard/KeyInput.h"
#include "gui/keyboard/KeyPresses.h"

class QWidget;

namespace Gui
{
class FocusControl;

/// The computer keyboard of a window: plays the keys typed into it while no text is edited, and those typed into its
/// dialogs in which nothing can be typed. Keys that are down are released when the focus leaves the window or goes to a
/// text; between its controls they stay down. The focus returns when a menu or a dialog closes. The GUI thread.
class WindowKeyboard final : public QObject
{
public:
    /// The listener must outlive this; the focus control becomes a child of `playedWindow`.
    WindowKeyboard(QWidget& playedWindow, KeyPresses::Listener& listener);
    ~WindowKeyboard() override;

    /// Gives the focus back to playing, unless a text is being edited.
    void takeFocus();
    /// Gives the focus back to playing if a control of `part`, which is about to be hidden, has it.
    void takeFocusFrom(const QWidget& part);

    /// Key events of the window that no control used.
    void keyPressed(const QKeyEvent& event);
    void keyReleased(const QKeyEvent& event);

    /// While a key is learned, every one that is pressed in the window or its dialogs is played, whatever has the
    /// focus.
    void playEveryKey(bool on) { playsEveryKey = on; }

    /// Releases the keys that were typed into the window.
    void releaseTyped();
    /// Releases every key, whatever its source.
    void releaseAll();

    KeyPresses& getKeyPresses() { return keyPresses; }

    /// The keys go elsewhere now.
    std::function<void(KeyTarget target)> onTarget;
    KeyTarget findTarget(const QWidget* focus) const;
    /// Asked about each key while no text is edited, before it is played: true for one that is used up.
    std::function<bool(const QKeyEvent& event)> onWindowKey;

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void handleInWindow(QWidget& widget, const QEvent& event);
    bool isToBeLearned(const QWidget& widget, const QEvent& event) const;
    bool handleInDialog(QWidget& widget, QEvent& event);
    void focusMoved(const QWidget* from, const QWidget* to);
    void dialogClosed();
    void returnFocus();

    QWidget& window;
    KeyPresses keyPresses;
    KeyInput keyInput;
    FocusControl* focusControl;  // a child of the window
    bool playsEveryKey = false;
};
}  // namespace Gui
