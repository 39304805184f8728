#pragma once

class QWidget;

namespace Gui
{
/// Whether `widget` is `ancestor` or a part of it, or of one of its dialogs.
bool isWithin(const QWidget& widget, const QWidget& ancestor);
}  // namespace Gui
