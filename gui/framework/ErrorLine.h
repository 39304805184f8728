#pragma once

#include <QLabel>

namespace Gui
{
/// A line in a dialog that says, in red, what is wrong with what was entered, or what could not be done; hidden while
/// there is nothing to say. Screen readers read it out. The GUI thread.
class ErrorLine final : public QLabel
{
public:
    explicit ErrorLine(QWidget* parent = nullptr);

    /// An empty text hides it.
    void showError(const QString& text);
};
}  // namespace Gui
