#pragma once

#include <QPointer>
#include <functional>

#include "gui/framework/EditBox.h"

namespace Gui
{
/// An edit laid over a value for as long as somebody types into it: Enter or going elsewhere takes the text, Escape
/// does not. It deletes itself, and gives the keyboard back to whoever had it.
class TemporaryEdit final : public EditBox
{
public:
    TemporaryEdit(QWidget& parent, const QRect& place, const QString& text);

    std::function<void(const QString& text)> onCommit;

    /// A click anywhere else is going elsewhere, also on what takes no focus.
    bool eventFilter(QObject* object, QEvent* event) override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    enum class Ending { commit, cancel };
    void finish(Ending ending);
    void giveFocusBack();

    QPointer<QWidget> focusedBefore;
    bool finished = false;
};
}  // namespace Gui
