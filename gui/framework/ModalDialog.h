#pragma once

#include <QDialog>

struct Message;

namespace Gui
{
/// A dialog that is open while the backend does something, and closes on the message that reports the end. The user can
/// close it earlier. The GUI thread.
class ModalDialog : public QDialog
{
public:
    /// `closingNumber`: the number of that message.
    ModalDialog(const QString& title, unsigned int closingNumber, QWidget& parent);

    /// Shows it, starts the operation and returns at once. The result comes with `finished`.
    void open() override;

    /// A message of the backend to the dialog. The closing message accepts it, or rejects it if its first parameter is
    /// 0; others are ignored.
    void handleMessage(const Message& message);

protected:
    /// Called once the dialog is shown.
    virtual void start() = 0;

private:
    unsigned int number;
};
}  // namespace Gui
