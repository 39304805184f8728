#pragma once

#include <QDialog>
#include <functional>

namespace Gui
{
class EditBox;

/// Asks for a line of text. Spaces around it are dropped. The GUI thread.
class EditBoxDialog final : public QDialog
{
public:
    enum class Blank { refused, allowed };

    EditBoxDialog(const QString& title, const QString& prompt, const QString& startText, Blank blankText,
                  QWidget& parent);

    /// What was accepted; empty until then.
    const QString& getText() const { return acceptedText; }

    /// A text that is not allowed to be blank leaves the dialog open and says so.
    void accept() override;

private:
    EditBox* edit;
    Blank blank;
    QString acceptedText;
};

/// Opens one and returns at once; `accepted` gets the text, and is not called if it is cancelled.
void showEditBoxDialog(QWidget& parent, const QString& title, const QString& prompt, const QString& startText,
                       EditBoxDialog::Blank blank, std::function<void(const QString& text)> accepted);
}  // namespace Gui
