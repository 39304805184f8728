#include "gui/framework/OperationDialog.h"

#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "gui/framework/KeyForwarding.h"

namespace Gui
{
OperationDialog::OperationDialog(const QString& text, unsigned int closingNumber, std::function<void()> operation,
                                 QWidget& parent)
    : ModalDialog(text, closingNumber, parent), post(std::move(operation))
{
    auto* close = new QPushButton(tr("Close"));
    close->setAutoDefault(false);
    close->setFocusPolicy(Qt::NoFocus);  // Escape is its key
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    auto* column = new QVBoxLayout(this);
    column->addWidget(new QLabel(text));
    column->addWidget(close);
    setAccessibleName(text);
}

void OperationDialog::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        reject();
    else
        forwardToParent(*this, *event);
}

void OperationDialog::keyReleaseEvent(QKeyEvent* event) { forwardToParent(*this, *event); }
}  // namespace Gui
