#pragma once

#include <QDialog>

struct Message;

namespace Gui
{
/// A dialog that stands while something goes on in the backend, and closes when the message comes that this is done. It
/// can be closed by hand before that. It opens and returns at once. The GUI thread.
class ModalDialog : public QDialog
{
public:
    /// `closingNumber`: the number of that message.
    ModalDialog(const QString& title, unsigned int closingNumber, QWidget& parent);

    /// Shows it and starts what it stands for. The result comes with `finished`.
    void open() override;

    /// What was posted to the window that stands for the dialog. The closing message accepts it, or rejects it if its
    /// first parameter is 0; others are nothing to it.
    void handleMessage(const Message& message);

protected:
    /// Called once the dialog is shown.
    virtual void start() = 0;

private:
    unsigned int number;
};
}  // namespace Gui
