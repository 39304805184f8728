#pragma once

#include <functional>

#include "gui/framework/ModalDialog.h"

namespace Gui
{
/// The progress dialog of an operation, "Saving...". The keys go on playing; Escape closes it.
class OperationDialog final : public ModalDialog
{
public:
    /// `operation` posts the command; the text is the title, too.
    OperationDialog(const QString& text, unsigned int closingNumber, std::function<void()> operation, QWidget& parent);

protected:
    void start() override { post(); }
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;

private:
    std::function<void()> post;
};
}  // namespace Gui
