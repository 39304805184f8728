#pragma once

#include "gui/framework/KeyTarget.h"
#include "gui/keyboard/KeyPresses.h"
#include "gui/keyboard/WindowKeyboard.h"

class QKeyEvent;

namespace Backend
{
class OrvMessageManager;
}

namespace Gui
{
class MainWindow;
class OrvGuiIF;

/// What the keys that are typed into the window do: they play, edit the section that is edited, undo, and move from
/// section to section. The GUI thread.
class WindowKeys final : private KeyPresses::Listener
{
public:
    /// Both must outlive it. The screens of the window are used from the first key on.
    WindowKeys(OrvGuiIF& owner, MainWindow& mainWindow);

    WindowKeyboard& getKeyboard() { return keyboard; }

    /// Shows where the keys go, at the focus of now.
    void showTarget();
    /// Control and Tab moves from section to section, with Shift back; false for other keys.
    bool useSectionKey(const QKeyEvent& event);

private:
    void keyDown(const Key& key, bool isRepeat) override;
    void keyUp(const Key& key) override;
    void showKey(int code, bool down) override;
    bool useEditKey(const QKeyEvent& event);
    void showTarget(KeyTarget target);

    OrvGuiIF& gui;
    Backend::OrvMessageManager& commands;
    MainWindow& window;
    WindowKeyboard keyboard;
};
}  // namespace Gui
