#pragma once

#include <QString>
#include <functional>

#include "platform/WindowHandle.h"

class QWidget;

namespace Gui
{
/// A file operation of the backend, during which the window shows a progress dialog: "Saving...".
struct Operation {
    QString title;  ///< of the progress dialog
    std::function<void(const WindowHandle& window)>
        post;                      ///< posts it to the backend, which notifies `window` of the end
    std::function<void()> done{};  ///< called if it succeeded
    QString failure;               ///< the sentence that is shown if it fails
    /// Called in place of both if nothing was written because another program has changed the file.
    std::function<void()> changed{};
};

/// Starts it and returns at once. Its progress dialog closes when `GuiMessage::OPERATION_DONE` comes. A failure is
/// shown even if the user closed the dialog before. The GUI thread.
void run(QWidget& parent, const Operation& operation);
}  // namespace Gui
