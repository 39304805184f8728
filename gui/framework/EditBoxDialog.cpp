#include "gui/framework/EditBoxDialog.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "gui/framework/EditBox.h"
#include "gui/framework/ErrorLine.h"
#include "gui/framework/Properties.h"
#include "gui/framework/Question.h"

namespace Gui
{
EditBoxDialog::EditBoxDialog(const QString& title, const QString& prompt, const QString& startText, Blank blank,
                             QWidget& parent)
    : QDialog(&parent), column(new QVBoxLayout(this)), edit(new EditBox), error(new ErrorLine)
{
    setWindowTitle(title);
    if (blank == Blank::refused)
        refuse = [](const QString& text) { return text.isEmpty() ? tr("Entry cannot be blank") : QString(); };
    auto* label = new QLabel(prompt);
    label->setBuddy(edit);
    Property::set(*edit, Property::NOWHEEL, true);  // a text; that of a number has limits
    edit->setText(startText);
    edit->selectAll();
    edit->setMinimumWidth(200);
    edit->setAccessibleName(prompt);
    connect(edit, &QLineEdit::textEdited, error, [this] { error->showError({}); });
    auto* ok = new QPushButton(tr("OK"));
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);
    auto* cancel = new QPushButton(tr("Cancel"));
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);

    column->addWidget(label);
    column->addWidget(edit);
    column->addWidget(error);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(ok);
    buttons->addWidget(cancel);
    column->addLayout(buttons);
}

void EditBoxDialog::addOption(QWidget* option)
{
    column->insertWidget(column->count() - 1, option);
    setTabOrder(edit, option);
}

void EditBoxDialog::accept()
{
    const QString text = edit->text().trimmed();
    if (const QString reason = refuse ? refuse(text) : QString(); !reason.isEmpty()) return error->showError(reason);
    if (const QString warning = warn ? warn(text) : QString(); !warning.isEmpty() && warnedOf != text) {
        warnedOf = text;
        return error->showError(warning);
    }
    const Doubt doubted = doubt ? doubt(text) : Doubt();
    if (doubted.question.isEmpty()) return take(text);
    ask(*this, doubted.title, doubted.question, [this, text] { take(text); });
}

void EditBoxDialog::take(const QString& text)
{
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
