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

/// What a button says, and what it does.
struct Answer {
    QString text;
    std::function<void()> action;
};
/// A question with two answers besides Cancel, which is the default button.
void ask(QWidget& parent, const QString& title, const QString& text, Answer yes, Answer instead);
}  // namespace Gui
