#pragma once

class QWidget;

namespace Gui
{
/// The property of a dialog that takes what is typed in it, though it has no line to type in.
inline constexpr const char* TAKES_TYPING = "TAKES_TYPING";

/// Whether keys typed into this control are text and must not be played; false for null.
bool takesText(const QWidget* control);
}  // namespace Gui
