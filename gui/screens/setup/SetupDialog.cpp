#include "gui/screens/setup/SetupDialog.h"

#include <QBoxLayout>
#include <QEvent>
#include <QLabel>
#include <QPushButton>

#include "api/OrvGuiIF.h"
#include "api/OrvMessageManager.h"
#include "gui/framework/ManualButton.h"
#include "gui/framework/Properties.h"
#include "gui/framework/Question.h"
#include "gui/framework/Skinner.h"
#include "gui/screens/setup/SettingField.h"
#include "gui/screens/setup/SetupPages.h"

namespace Gui::Setup
{
namespace
{
constexpr int HELP_LINES = 3;
constexpr int BUTTON_WIDTH = 80;
}  // namespace

SetupDialog::SetupDialog(OrvGuiIF& owner, QWidget& parent)
    : QDialog(&parent), gui(owner), pages(new SetupPages(owner)), help(new QLabel)
{
    setWindowTitle(tr("Setup"));
    setAccessibleName(windowTitle());
    auto* column = new QVBoxLayout(this);
    column->addWidget(pages, 1);
    column->addWidget(help);
    column->addLayout(makeButtons());
    gui.getSkinner().skinWindow(*this);
    makeHelp();
}

QBoxLayout* SetupDialog::makeButtons()
{
    auto* line = new QHBoxLayout;
    addManualButton(*line, "setup.htm");
    line->addStretch();
    const auto addButton = [line](const QString& label) {
        auto* button = new QPushButton(label);
        button->setMinimumWidth(BUTTON_WIDTH);
        button->setAccessibleName(label);
        line->addWidget(button);
        return button;
    };
    auto* ok = addButton(tr("OK"));
    ok->setDefault(true);
    Property::setHelp(*ok, tr("Applies the changes of all pages."));
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);
    auto* cancel = addButton(tr("Cancel"));
    Property::setHelp(*cancel, tr("Closes without applying any change."));
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    return line;
}

/// A line at the bottom shows the help of the control under the pointer.
void SetupDialog::makeHelp()
{
    help->setObjectName(QStringLiteral("help"));
    Property::set(*help, Property::TEXT, true);
    help->setWordWrap(true);
    help->setTextFormat(Qt::PlainText);
    help->setAlignment(Qt::AlignTop);
    help->setFixedHeight(HELP_LINES * (help->fontMetrics().height() + 1));
    for (QWidget* control : findChildren<QWidget*>())
        if (control->property(Property::HELP).isValid()) control->installEventFilter(this);
    pages->onPage = [this](const QString& text) { help->setText(text); };
}

bool SetupDialog::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() == QEvent::Enter || event->type() == QEvent::FocusIn)
        help->setText(object->property(Property::HELP).toString());
    return QDialog::eventFilter(object, event);
}

void SetupDialog::follow() { pages->follow(); }

// --- OK

void SetupDialog::accept()
{
    if (!refuses()) askAll(findQuestions());
}

bool SetupDialog::refuses()
{
    for (const auto* field : pages->findChanged())
        if (const QString fault = field->findFault(); !fault.isEmpty()) return refuse(*field, fault), true;
    if (const auto* ports = pages->findLoopback()) {
        refuse(*ports, tr("Invalid MIDI loopback port settings. Cannot enable input and output simultaneously."));
        return true;
    }
    return false;
}

/// Shows the reason and moves to the field.
void SetupDialog::refuse(const SettingField& field, const QString& text)
{
    pages->goTo(field);
    showMessage(*this, tr("Invalid entry"), text);
}

QStringList SetupDialog::findQuestions() const
{
    QStringList questions;
    for (const auto* field : pages->findChanged())
        if (const QString question = field->getQuestion(); !question.isEmpty()) questions.append(question);
    return questions;
}

/// Asks one question after the other, and posts the changes after the last yes, or if there is no question.
void SetupDialog::askAll(QStringList questions)
{
    if (questions.isEmpty()) return apply();
    const QString first = questions.takeFirst();
    ask(*this, tr("Confirm"), first, [this, questions] { askAll(questions); });
}

/// The backend does not report every change of a setting, so all of them are requested.
void SetupDialog::apply()
{
    const auto changed = pages->findChanged();
    for (const auto* field : changed) field->post();
    if (!changed.empty()) gui.getOrvMessageManager().postRefreshGui();
    QDialog::accept();
}
}  // namespace Gui::Setup
