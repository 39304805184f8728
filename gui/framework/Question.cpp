#include "gui/framework/Question.h"

#include <QAbstractButton>
#include <QMessageBox>
#include <utility>

namespace Gui
{
namespace
{
QMessageBox& makeBox(QWidget& parent, const QString& title, const QString& text, QMessageBox::StandardButtons buttons)
{
    auto* box = new QMessageBox(QMessageBox::NoIcon, title, text, buttons, &parent);
    box->setTextFormat(Qt::PlainText);
    box->setAttribute(Qt::WA_DeleteOnClose);
    return *box;
}
}  // namespace

void showMessage(QWidget& parent, const QString& title, const QString& text)
{
    makeBox(parent, title, text, QMessageBox::Ok).open();
}

void ask(QWidget& parent, const QString& title, const QString& text, std::function<void()> yes)
{
    QMessageBox& box = makeBox(parent, title, text, QMessageBox::Yes | QMessageBox::No);
    box.setDefaultButton(QMessageBox::No);
    QObject::connect(&box, &QMessageBox::finished, &parent, [yes = std::move(yes)](int answer) {
        if (answer == QMessageBox::Yes) yes();
    });
    box.open();
}

void ask(QWidget& parent, const QString& title, const QString& text, Answer yes, Answer instead)
{
    QMessageBox& box = makeBox(parent, title, text, QMessageBox::Yes | QMessageBox::Save | QMessageBox::Cancel);
    box.setDefaultButton(QMessageBox::Cancel);
    box.button(QMessageBox::Yes)->setText(yes.text);
    box.button(QMessageBox::Save)->setText(instead.text);
    QObject::connect(&box, &QMessageBox::finished, &parent,
                     [yes = std::move(yes.action), instead = std::move(instead.action)](int answer) {
                         if (answer == QMessageBox::Yes) yes();
                         if (answer == QMessageBox::Save) instead();
                     });
    box.open();
}
}  // namespace Gui
