#pragma once

#include <QString>
#include <functional>

#include "platform/WindowHandle.h"

class QWidget;

namespace Gui
{
/// Something that the backend does with files while the window shows that it does: "Saving...".
struct Operation {
    QString title;                                         ///< the progress dialog says it
    std::function<void(const WindowHandle& window)> post;  ///< gives it to the backend, which tells `window` of the end
    QString failure;                                       ///< the sentence that is shown if it failed
};

/// Starts it and returns at once. Its progress dialog closes when `GuiMessage::OPERATION_DONE` comes. A failure is told
/// even if the dialog was closed by hand before. The GUI thread.
void run(QWidget& parent, const Operation& operation);
}  // namespace Gui
