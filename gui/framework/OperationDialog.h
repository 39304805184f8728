#pragma once

#include <functional>

#include "gui/framework/ModalDialog.h"

namespace Gui
{
/// "Saving...", while the backend saves. The keys go on playing meanwhile; Escape closes it.
class OperationDialog final : public ModalDialog
{
public:
    /// `operation` posts what is to be done; the text is the title, too.
    OperationDialog(const QString& text, unsigned int closingNumber, std::function<void()> operation, QWidget& parent);

protected:
    void start() override { post(); }
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;

private:
    std::function<void()> post;
};
}  // namespace Gui
