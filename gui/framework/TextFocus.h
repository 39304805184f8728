#pragma once

class QWidget;

namespace Gui
{
/// Whether what is typed at this control is text, so that it does not play; null is not.
bool takesText(const QWidget* control);
}  // namespace Gui
