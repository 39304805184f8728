#pragma once

#include <QString>
#include <functional>

class QWidget;

namespace Gui
{
// Message boxes with one sentence. They open and return at once. The GUI thread.

/// Shows a sentence.
void showMessage(QWidget& parent, const QString& title, const QString& text);

/// A question; `yes` is called if the answer is yes. Escape means no, and no is the default button.
void ask(QWidget& parent, const QString& title, const QString& text, std::function<void()> yes);
}  // namespace Gui
