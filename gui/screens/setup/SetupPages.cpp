#include "gui/screens/setup/SetupPages.h"

#include <QBoxLayout>
#include <QListWidget>
#include <QStackedWidget>
#include <utility>

#include "api/HostState.h"
#include "api/OrvGuiIF.h"
#include "gui/framework/Properties.h"
#include "gui/framework/Switches.h"
#include "gui/keyboard/GlobalKeyboard.h"
#include "gui/screens/setup/BankField.h"
#include "gui/screens/setup/ChoiceField.h"
#include "gui/screens/setup/FileField.h"
#include "gui/screens/setup/NumberField.h"
#include "gui/screens/setup/PortListField.h"
#include "gui/screens/setup/SettingTables.h"
#include "gui/screens/setup/SetupRow.h"
#include "gui/screens/setup/SwitchField.h"
#include "gui/screens/setup/TextField.h"

namespace Gui::Setup
{
namespace
{
constexpr int TITLES_WIDTH = 110;
constexpr QSize PAGE_SIZE(420, 250);
}  // namespace

SetupPages::SetupPages(OrvGuiIF& owner) : gui(owner), titles(new QListWidget), pages(new QStackedWidget)
{
    titles->setFixedWidth(TITLES_WIDTH);
    titles->setAccessibleName(tr("Pages"));
    pages->setMinimumSize(PAGE_SIZE);
    pages->setFrameShape(QFrame::StyledPanel);
    auto* line = new QHBoxLayout(this);
    line->setContentsMargins({});
    line->addWidget(titles);
    line->addWidget(pages, 1);
    makePages();
    follow();
    connect(titles, &QListWidget::currentRowChanged, this, &SetupPages::turnTo);
    titles->setCurrentRow(0);
}

SetupPages::~SetupPages() = default;

// --- the pages and their fields

QBoxLayout& SetupPages::addPage(const Page& page)
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
Field& SetupPages::add(Arguments&&... arguments)
{
    auto field = std::make_unique<Field>(gui, std::forward<Arguments>(arguments)...);
    Field& added = *field;
    fields.push_back(std::move(field));
    return added;
}

void SetupPages::makePages()
{
    QBoxLayout& in =
        addPage({tr("MIDI inputs"),
                 tr("MIDI inputs: those with a check mark are received. Below, whose program changes are followed.")});
    inputs = &add<PortListField>(INPUTS, in);
    add<ChoiceField>(PROGRAM_CHANGE_INPUT, in);
    add<ChoiceField>(PROGRAM_CHANGE_CHANNEL, in);

    QBoxLayout& out = addPage(
        {tr("MIDI outputs"), tr("MIDI outputs: those with a check mark can be played. Below, the default output.")});
    outputs = &add<PortListField>(OUTPUTS, out);
    add<ChoiceField>(DEFAULT_OUTPUT, out);

    if (const auto* overrides = gui.getHostOverrides()) makeHostPages(*overrides);

    QBoxLayout& playing =
        addPage({tr("Playing"), tr("MIDI thru, the global keyboard and the sensitivity of the mouse.")});
    auto& globalKeyboard = add<SwitchField>(Switches::GLOBAL_KEYBOARD, playing);
    Property::setHelp(globalKeyboard.getControl(),
                      QString::fromStdString(GlobalKeyboard::describe(gui.getGlobalKeyboardReason())));
    add<SwitchField>(Switches::MIDI_THRU, playing);
    add<SwitchField>(Switches::KEEP_NOTES, playing);
    add<NumberField>(MOUSE_SENSITIVITY, playing);

    QBoxLayout& bank =
        addPage({tr("Bank"), tr("The bank that a start loads, and what is asked before changes are lost.")});
    add<BankField>(bank);
    add<SwitchField>(Switches::CONTINUE_LAST, bank);
    add<ChoiceField>(ASK_BEFORE_LOSS, bank);
    add<TextField>(INSTALL_FOLDER, bank);

    QBoxLayout& record = addPage(
        {tr("Record"), tr("The retrospective record: on or off, and its size, 1 to 200000 KB for each output.")});
    add<SwitchField>(Switches::RECORD, record);
    add<NumberField>(RECORD_SIZE, record);

    QBoxLayout& display = addPage(
        {tr("Display"), tr("Which MIDI events the display lists, in which font, and its height of 60 to 600 pixels.")});
    for (const Switch& row : Switches::DISPLAY) add<SwitchField>(row, display);
    add<NumberField>(DISPLAY_HEIGHT, display);

    QBoxLayout& window = addPage({tr("Window"), tr("Scale, colours, position, stacking and border of the window.")});
    add<ChoiceField>(WINDOW_SCALE, window);
    add<ChoiceField>(SKIN, window);
    for (const Switch& row : Switches::WINDOW) add<SwitchField>(row, window);

    for (QBoxLayout* rows : {&playing, &bank, &record, &display, &window}) rows->addStretch();
}

/// Of the settings that not every host executes. What the command line replaces can be set for later starts.
void SetupPages::makeHostPages(const Backend::HostOverrides& overrides)
{
    const auto addReplaced = [](const SettingField& field, bool isReplaced) {
        QWidget& control = field.getControl();
        if (isReplaced)
            Property::setHelp(control, control.property(Property::HELP).toString() +
                                           tr(" The command line replaces it until Orvane is closed."));
    };
    QBoxLayout& audio =
        addPage({tr("Audio"), tr("The built-in synthesizer: volume, reverb and sound font; and Orvane in JACK.")});
    add<NumberField>(SYNTHESIZER_VOLUME, audio);
    add<SwitchField>(Switches::REVERB, audio);
    add<FileField>(SOUND_FONT, audio);
    addReplaced(add<TextField>(CLIENT_NAME, audio), overrides.client);
    add<SwitchField>(Switches::CONNECT_SOUND, audio);
    audio.addStretch();

    QBoxLayout& clock = addPage({tr("Clock"), tr("MIDI clocks that are followed and sent, and the JACK transport.")});
    addReplaced(add<ChoiceField>(CLOCK_IN, clock), overrides.clockIn);
    addReplaced(add<ChoiceField>(CLOCK_OUT, clock), overrides.clockOut);
    addReplaced(add<SwitchField>(Switches::TRANSPORT, clock), overrides.transport);
    clock.addStretch();
}

// --- values

void SetupPages::follow()
{
    for (const auto& field : fields) field->follow();
}

std::vector<const SettingField*> SetupPages::findChanged() const
{
    std::vector<const SettingField*> changed;
    for (const auto& field : fields)
        if (field->isChanged()) changed.push_back(field.get());
    return changed;
}

const SettingField* SetupPages::findLoopback() const
{
    if (!breaksLoopbackRule(inputs->getChoices(), outputs->getChoices())) return nullptr;
    return outputs->isChanged() && !inputs->isChanged() ? outputs : inputs;
}

// --- choosing a page

void SetupPages::turnTo(int row)
{
    const QString help = titles->item(row)->data(Qt::UserRole).toString();
    Property::setHelp(*titles, help);
    pages->setCurrentIndex(row);
    if (onPage) onPage(help);
}

void SetupPages::goTo(const SettingField& field)
{
    QWidget& control = field.getControl();
    for (int row = 0; row < pages->count(); ++row)
        if (pages->widget(row)->isAncestorOf(&control)) titles->setCurrentRow(row);
    control.setFocus();
}
}  // namespace Gui::Setup
