#pragma once

#include <QWidget>

namespace Gui
{
class KeyInput;

/// Has the keyboard focus while no text is edited; keys typed there are played. Control and Tab moves the focus to the
/// first control, Shift, Control and Tab to the last. From there Tab moves on, keys that a control does not use are
/// played, and Escape moves the focus back here.
class FocusControl final : public QWidget
{
public:
    FocusControl(KeyInput& keyInput, QWidget* parent);

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    /// Tab without Control is played.
    bool focusNextPrevChild(bool) override { return false; }

private:
    KeyInput& input;
};
}  // namespace Gui
