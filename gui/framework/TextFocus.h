#pragma once

class QWidget;

namespace Gui
{
/// Whether keys typed into this control are text and must not be played; false for null.
bool takesText(const QWidget* control);
}  // namespace Gui
