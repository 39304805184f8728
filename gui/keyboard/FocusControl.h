#pragma once

#include <QWidget>

namespace Gui
{
class KeyInput;

/// Holds the keyboard focus while no text is edited. What is typed there plays. Only Control with Tab, or Shift,
/// Control and Tab, does not play: it goes to the first control, or the last. From there Tab goes on, what a control
/// has no use for plays, and Escape comes back here.
class FocusControl final : public QWidget
{
public:
    FocusControl(KeyInput& keyInput, QWidget* parent);

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    /// Tab by itself is a key to play on.
    bool focusNextPrevChild(bool) override { return false; }

private:
    KeyInput& input;
};
}  // namespace Gui
