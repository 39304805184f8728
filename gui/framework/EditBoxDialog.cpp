#include "gui/framework/EditBoxDialog.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "gui/framework/EditBox.h"

namespace Gui
{
EditBoxDialog::EditBoxDialog(const QString& title, const QString& prompt, const QString& startText, Blank blankText,
                             QWidget& parent)
    : QDialog(&parent), edit(new EditBox), blank(blankText)
{
    setWindowTitle(title);
    auto* label = new QLabel(prompt);
    label->setBuddy(edit);
    edit->setText(startText);
    edit->selectAll();
    edit->setMinimumWidth(200);
    edit->setAccessibleName(prompt);
    auto* ok = new QPushButton(tr("OK"));
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);
    auto* cancel = new QPushButton(tr("Cancel"));
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);

    auto* column = new QVBoxLayout(this);
    column->addWidget(label);
    column->addWidget(edit);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(ok);
    buttons->addWidget(cancel);
    column->addLayout(buttons);
}

void EditBoxDialog::accept()
{
    const QString text = edit->text().trimmed();
    if (text.isEmpty() && blank == Blank::refused) {
        auto* error =
            new QMessageBox(QMessageBox::NoIcon, tr("Error"), tr("Entry cannot be blank"), QMessageBox::Ok, this);
        error->setAttribute(Qt::WA_DeleteOnClose);
        return error->open();
    }
    acceptedText = text;
    QDialog::accept();
}

void showEditBoxDialog(QWidget& parent, const QString& title, const QString& prompt, const QString& startText,
                       EditBoxDialog::Blank blank, std::function<void(const QString& text)> accepted)
{
    auto* dialog = new EditBoxDialog(title, prompt, startText, blank, parent);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(dialog, &QDialog::accepted, &parent,
                     [dialog, accepted = std::move(accepted)] { accepted(dialog->getText()); });
    dialog->open();
}
}  // namespace Gui
