#include "gui/framework/Question.h"

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
}  // namespace Gui
