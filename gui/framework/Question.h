#pragma once

#include <QString>
#include <functional>

class QWidget;

namespace Gui
{
// Boxes with one sentence. They open and return at once. The GUI thread.

/// Says something that only can be read.
void tell(QWidget& parent, const QString& title, const QString& text);

/// Asks; `yes` is called for a yes alone. Escape is a no, and so is Enter on what is chosen at first.
void ask(QWidget& parent, const QString& title, const QString& text, std::function<void()> yes);
}  // namespace Gui
