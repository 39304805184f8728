#pragma once

#include <QDialog>
#include <functional>

class QVBoxLayout;

namespace Gui
{
class EditBox;
class ErrorLine;

/// A dialog for a line of text. Blanks on both sides are removed. The GUI thread.
class EditBoxDialog final : public QDialog
{
public:
    enum class Blank { refused, allowed };

    EditBoxDialog(const QString& title, const QString& prompt, const QString& startText, Blank blankText,
                  QWidget& parent);

    /// Returns why a text is refused, or an empty string. It gets the trimmed text, a blank one too.
    std::function<QString(const QString& text)> refuse;
    /// Returns what a text would do that may not be wanted, or an empty string. Such a text has to be accepted twice.
    std::function<QString(const QString& text)> warn;

    struct Doubt {
        QString title;
        QString question;
    };
    /// The question to ask before a text is accepted; none without a callback.
    std::function<Doubt(const QString& text)> doubt;

    /// Adds a control below the line; the dialog takes ownership.
    void addOption(QWidget* option);
    EditBox& getEdit() { return *edit; }

    /// The accepted text; empty until then.
    const QString& getText() const { return acceptedText; }

    /// A text that is refused leaves the dialog open, which says why below the line.
    void accept() override;

private:
    void take(const QString& text);

    QVBoxLayout* column;
    EditBox* edit;
    ErrorLine* error;
    QString warnedOf;
    QString acceptedText;
};

/// Opens one and returns at once; `accepted` gets the text, and is not called if it is cancelled.
void showEditBoxDialog(QWidget& parent, const QString& title, const QString& prompt, const QString& startText,
                       EditBoxDialog::Blank blank, std::function<void(const QString& text)> accepted);
}  // namespace Gui
