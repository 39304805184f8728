#include "gui/framework/RadioButton.h"

#include <QButtonGroup>
#include <QKeyEvent>

namespace Gui
{
RadioButton::RadioButton(GuiContext& guiContext, int buttonId, const QString& label, const QRect& rectangle,
                         QWidget* parent, QButtonGroup& group)
    : Button(guiContext, buttonId, label, rectangle, parent, Action::latching)
{
    setAutoExclusive(true);
    group.addButton(this);
}

void RadioButton::mouseDown()
{
    setPressed(true);
    notify();
}

void RadioButton::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_Left:
        case Qt::Key_Right:
            return QAbstractButton::keyPressEvent(event);
        default:
            return Button::keyPressEvent(event);
    }
}
}  // namespace Gui
