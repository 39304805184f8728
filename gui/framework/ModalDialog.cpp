#include "gui/framework/ModalDialog.h"

#include "platform/Message.h"

namespace Gui
{
ModalDialog::ModalDialog(const QString& title, unsigned int closingNumber, QWidget& parent)
    : QDialog(&parent), number(closingNumber)
{
    setWindowTitle(title);
}

void ModalDialog::open()
{
    QDialog::open();
    start();
}

void ModalDialog::handleMessage(const Message& message)
{
    if (message.number == number) done(message.wparam == 0 ? Rejected : Accepted);
}
}  // namespace Gui
