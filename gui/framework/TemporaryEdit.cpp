#include "gui/framework/TemporaryEdit.h"

#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>

namespace Gui
{
namespace
{
/// Whether the object is the edit or its menu.
bool isPartOf(const QWidget& edit, const QObject* object)
{
    while (object != nullptr && object != &edit) object = object->parent();
    return object == &edit;
}
}  // namespace

TemporaryEdit::TemporaryEdit(QWidget& parent, const QRect& place, const QString& text)
    : EditBox(&parent), focusedBefore(QApplication::focusWidget())
{
    setText(text);
    selectAll();
    setGeometry(place);
    setAccessibleName(parent.accessibleName());
    show();
    setFocus(Qt::MouseFocusReason);
    qApp->installEventFilter(this);
}

bool TemporaryEdit::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonPress && object->isWidgetType() && !isPartOf(*this, object)) {
        finish(Ending::commit);
        giveFocusBack();
    }
    return false;
}

void TemporaryEdit::giveFocusBack()
{
    if (focusedBefore) focusedBefore->setFocus(Qt::OtherFocusReason);
}

void TemporaryEdit::keyPressEvent(QKeyEvent* event)
{
    const bool commits = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!commits && event->key() != Qt::Key_Escape) return EditBox::keyPressEvent(event);
    finish(commits ? Ending::commit : Ending::cancel);
    giveFocusBack();
}

void TemporaryEdit::focusOutEvent(QFocusEvent* event)
{
    EditBox::focusOutEvent(event);
    if (event->reason() != Qt::PopupFocusReason) finish(Ending::commit);
}

void TemporaryEdit::finish(Ending ending)
{
    if (finished) return;
    finished = true;  // hiding takes the focus, which comes back here
    qApp->removeEventFilter(this);
    hide();
    deleteLater();
    if (ending == Ending::commit && onCommit) onCommit(text());
}
}  // namespace Gui
