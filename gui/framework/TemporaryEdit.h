#pragma once

#include <QPointer>
#include <functional>

#include "gui/framework/EditBox.h"

namespace Gui
{
/// An edit over a value while the user types a new one: Enter or leaving it takes the text, Escape discards it. It
/// deletes itself and gives the focus back to the control that had it.
class TemporaryEdit final : public EditBox
{
public:
    TemporaryEdit(QWidget& parent, const QRect& place, const QString& text);

    std::function<void(const QString& text)> onCommit;

    /// A click anywhere else leaves it, even on a control that takes no focus.
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
