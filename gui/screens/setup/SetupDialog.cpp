#include "gui/screens/setup/SetupDialog.h"

#include <QBoxLayout>
#include <QEvent>
#include <QLabel>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QStackedWidget>
#include <algorithm>
#include <utility>

#include "backend/core/OrvMessageManager.h"
#include "gui/OrvGuiIF.h"
#include "gui/framework/Properties.h"
#include "gui/framework/Skinner.h"
#include "gui/screens/main/GlobalKeyboard.h"
#include "gui/screens/setup/BankField.h"
#include "gui/screens/setup/ChoiceField.h"
#include "gui/screens/setup/NumberField.h"
#include "gui/screens/setup/PortListField.h"
#include "gui/screens/setup/SettingTables.h"
#include "gui/screens/setup/SetupRow.h"
#include "gui/screens/setup/SwitchField.h"

namespace Gui::Setup
{
namespace
{
constexpr int TITLES_WIDTH = 110;
constexpr QSize PAGE_SIZE(420, 250);
constexpr int HELP_LINES = 3;
constexpr int BUTTON_WIDTH = 80;

QMessageBox& makeBox(QWidget& parent, const QString& title, const QString& text, QMessageBox::StandardButtons buttons)
{
    auto* box = new QMessageBox(QMessageBox::NoIcon, title, text, buttons, &parent);
    box->setTextFormat(Qt::PlainText);
    box->setAttribute(Qt::WA_DeleteOnClose);
    return *box;
}
}  // namespace

SetupDialog::SetupDialog(OrvGuiIF& owner, QWidget& parent)
    : QDialog(&parent), gui(owner), titles(new QListWidget), pages(new QStackedWidget), help(new QLabel)
{
    setWindowTitle(tr("Setup"));
    setAccessibleName(windowTitle());
    titles->setFixedWidth(TITLES_WIDTH);
    titles->setAccessibleName(tr("Pages"));
    pages->setMinimumSize(PAGE_SIZE);
    pages->setFrameShape(QFrame::StyledPanel);

    auto* body = new QHBoxLayout;
    body->addWidget(titles);
    body->addWidget(pages, 1);
    auto* column = new QVBoxLayout(this);
    column->addLayout(body, 1);
    column->addWidget(help);
    makePages();
    column->addLayout(makeButtons());
    gui.getSkinner().skinWindow(*this);
    makeHelp();
    follow();
}

SetupDialog::~SetupDialog() = default;

// --- what it consists of

QBoxLayout& SetupDialog::addPage(const Page& page)
{
    auto* widget = new QWidget;
    auto* rows = new QVBoxLayout(widget);
    auto* title = new QListWidgetItem(page.title, titles);
    title->setSizeHint(SetupRow::LIST_ROW);
    title->setData(Qt::UserRole, page.help);
    pages->addWidget(widget);
    return *rows;
}

template <class Field, class... Arguments>
Field& SetupDialog::add(Arguments&&... arguments)
{
    auto field = std::make_unique<Field>(gui, std::forward<Arguments>(arguments)...);
    Field& added = *field;
    fields.push_back(std::move(field));
    return added;
}

void SetupDialog::makePages()
{
    QBoxLayout& in = addPage({tr("MIDI Inputs"), tr("What is listened to.")});
    inputs = &add<PortListField>(INPUTS, in);

    QBoxLayout& out = addPage({tr("MIDI Outputs"), tr("What is played on.")});
    outputs = &add<PortListField>(OUTPUTS, out);
    add<ChoiceField>(DEFAULT_OUTPUT, out);

    QBoxLayout& playing = addPage({tr("Playing"), tr("What plays, and how.")});
    auto& globalKeyboard = add<SwitchField>(GLOBAL_KEYBOARD, playing);
    Property::setHelp(globalKeyboard.getControl(),
                      QString::fromStdString(GlobalKeyboard::describe(gui.getGlobalKeyboardReason())));
    for (const Switch& row : PLAYING_SWITCHES) add<SwitchField>(row, playing);
    add<NumberField>(MOUSE_SENSITIVITY, playing);

    QBoxLayout& bank = addPage({tr("Bank"), tr("What is loaded at the start.")});
    add<BankField>(bank);

    QBoxLayout& record = addPage({tr("Record"), tr("The record of what was played lately.")});
    add<SwitchField>(RECORD_SWITCH, record);
    add<NumberField>(RECORD_SIZE, record);

    QBoxLayout& display = addPage({tr("Display"), tr("What the list of events shows.")});
    for (const Switch& row : DISPLAY_SWITCHES) add<SwitchField>(row, display);
    add<NumberField>(DISPLAY_HEIGHT, display);

    QBoxLayout& window = addPage({tr("Window"), tr("How the window stands on the desktop.")});
    for (const Switch& row : WINDOW_SWITCHES) add<SwitchField>(row, window);

    QBoxLayout& lite = addPage({tr("Lite"), tr("What a simple program plays with.")});
    add<NumberField>(LITE_VELOCITY, lite);
    add<ChoiceField>(LITE_CHANNEL, lite);
    add<SwitchField>(LITE_STACK_NOTES, lite);

    for (QBoxLayout* rows : {&playing, &bank, &record, &display, &window, &lite}) rows->addStretch();
}

QBoxLayout* SetupDialog::makeButtons()
{
    auto* line = new QHBoxLayout;
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
    Property::setHelp(*ok, tr("Does what was changed here, on all pages."));
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);
    auto* cancel = addButton(tr("Cancel"));
    Property::setHelp(*cancel, tr("Leaves everything as it was."));
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    return line;
}

/// A line at the bottom says what the thing does that is pointed at.
void SetupDialog::makeHelp()
{
    Property::setHelp(*titles, tr("The pages of the settings."));
    help->setObjectName(QStringLiteral("help"));
    Property::set(*help, Property::TEXT, true);
    help->setWordWrap(true);
    help->setTextFormat(Qt::PlainText);
    help->setAlignment(Qt::AlignTop);
    help->setFixedHeight(HELP_LINES * (help->fontMetrics().height() + 1));
    for (QWidget* control : findChildren<QWidget*>())
        if (control->property(Property::HELP).isValid()) control->installEventFilter(this);
    connect(titles, &QListWidget::currentRowChanged, this, [this](int row) {
        pages->setCurrentIndex(row);
        help->setText(titles->item(row)->data(Qt::UserRole).toString());
    });
    titles->setCurrentRow(0);
}

bool SetupDialog::eventFilter(QObject* object, QEvent* event)
{
    if ((event->type() == QEvent::Enter || event->type() == QEvent::FocusIn) && object != titles)
        help->setText(object->property(Property::HELP).toString());
    return QDialog::eventFilter(object, event);
}

void SetupDialog::follow()
{
    for (const auto& field : fields) field->follow();
}

// --- OK

void SetupDialog::accept()
{
    if (!refuses() && !asks()) apply();
}

bool SetupDialog::refuses()
{
    for (const auto& field : fields)
        if (const QString fault = field->isChanged() ? field->findFault() : QString(); !fault.isEmpty())
            return refuse(*field, fault), true;
    if (!breaksLoopbackRule(inputs->getChoices(), outputs->getChoices())) return false;
    const bool atOutputs = outputs->isChanged() && !inputs->isChanged();
    refuse(atOutputs ? *outputs : *inputs,
           tr("Invalid MIDI loopback port settings. Cannot enable input and output simultaneously."));
    return true;
}

/// Says so, and goes where it is.
void SetupDialog::refuse(const SettingField& field, const QString& text)
{
    QWidget& control = field.getControl();
    for (int row = 0; row < pages->count(); ++row)
        if (pages->widget(row)->isAncestorOf(&control)) titles->setCurrentRow(row);
    control.setFocus();
    makeBox(*this, tr("Invalid entry"), text, QMessageBox::Ok).open();
}

/// True if there is something to ask; a yes then applies.
bool SetupDialog::asks()
{
    for (const auto& field : fields) {
        const QString question = field->isChanged() ? field->getQuestion() : QString();
        if (question.isEmpty()) continue;
        QMessageBox& box = makeBox(*this, tr("Confirm"), question, QMessageBox::Yes | QMessageBox::No);
        connect(&box, &QMessageBox::finished, this, [this](int answer) {
            if (answer == QMessageBox::Yes) apply();
        });
        box.open();
        return true;
    }
    return false;
}

/// Of some settings nobody is told, so the window asks for all of them.
void SetupDialog::apply()
{
    bool changed = false;
    for (const auto& field : fields) {
        if (!field->isChanged()) continue;
        field->post();
        changed = true;
    }
    if (changed) gui.getOrvMessageManager().postRefreshGui();
    QDialog::accept();
}
}  // namespace Gui::Setup
