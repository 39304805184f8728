#include "gui/framework/Operation.h"

#include "backend/messages/GuiMessages.h"
#include "gui/framework/GuiWindow.h"
#include "gui/framework/OperationDialog.h"
#include "gui/framework/Question.h"
#include "platform/Message.h"

namespace Gui
{
using Backend::GuiMessage::FILE_CHANGED;
using Backend::GuiMessage::OPERATION_DONE;

namespace
{
/// Owned by the dialog. Both live until the message comes, even if the dialog was closed.
class RunningOperation final : public QObject
{
public:
    RunningOperation(QWidget& around, const Operation& operation)
        : parent(around),
          failure(operation.failure),
          done(operation.done),
          changed(operation.changed),
          window([this](Message& message) { handleMessage(message); }),
          dialog(*new OperationDialog(
              operation.title, OPERATION_DONE, [this, post = operation.post] { post(window.getHandle()); }, around))
    {
        setParent(&dialog);
        dialog.open();
    }

private:
    void handleMessage(const Message& message)
    {
        dialog.handleMessage(message);
        if (message.number == FILE_CHANGED) {
            dialog.reject();
            dialog.deleteLater();
            if (changed) changed();
        }
        if (message.number != OPERATION_DONE) return;
        dialog.deleteLater();
        if (message.wparam == 0)
            showMessage(parent, tr("Error"), failure);
        else if (done)
            done();
    }

    QWidget& parent;
    const QString failure;
    const std::function<void()> done;
    const std::function<void()> changed;
    GuiWindow window;
    OperationDialog& dialog;
};
}  // namespace

void run(QWidget& parent, const Operation& operation) { new RunningOperation(parent, operation); }
}  // namespace Gui
