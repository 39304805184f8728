#pragma once

class QKeyEvent;
class QWidget;

namespace Gui
{
/// Sends a key event of `control` to its parent, which plays it; true if it was accepted there.
bool forwardToParent(const QWidget& control, const QKeyEvent& event);
}  // namespace Gui
