#pragma once

class QKeyEvent;
class QWidget;

namespace Gui
{
/// Gives a key that was meant for `control` to what is around it, so that it plays; true if somebody took it.
bool forwardToParent(const QWidget& control, const QKeyEvent& event);
}  // namespace Gui
