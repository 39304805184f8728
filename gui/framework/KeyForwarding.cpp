#include "gui/framework/KeyForwarding.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QWidget>
#include <memory>

namespace Gui
{
bool forwardToParent(const QWidget& control, const QKeyEvent& event)
{
    QWidget* parent = control.parentWidget();
    if (parent == nullptr) return false;
    const std::unique_ptr<QEvent> copy(event.clone());
    copy->accept();
    return QCoreApplication::sendEvent(parent, copy.get()) && copy->isAccepted();
}
}  // namespace Gui
