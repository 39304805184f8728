#include <QLabel>
#include <QPushButton>

#include "api/OrvGuiIF.h"
#include "api/OrvMessageManager.h"
#include "gui/framework/ComboBox.h"
#include "gui/framework/EditPoster.h"
#include "gui/framework/Properties.h"
#include "gui/framework/Switches.h"
#include "gui/screens/system/ScreenButtons.h"
#include "gui/screens/system/SystemPanel.h"

// The controls of the lower rows of the system screen, each with its place, its names and the command it posts.
namespace Gui::System
{
namespace
{
constexpr QSize SIZE(960, 56);
constexpr int HEIGHT = 24;
constexpr int ROWS[] = {0, 32};

/// From `left` to `right`, in one of the rows.
QRect at(int row, int left, int right) { return {left, ROWS[row], right - left, HEIGHT}; }

SelectType specific(int number) { return {.kind = SelectType::Kind::specific, .value = number}; }
}  // namespace

template <class Control>
Control* SystemPanel::add(Control* control, const QRect& rectangle, const QString& name, const QString& help)
{
    place(*control, rectangle);
    control->setAccessibleName(name);
    Property::setHelp(*control, help);
    return control;
}

void SystemPanel::addLabel(const QString& text, const QRect& rectangle)
{
    auto* label = new QLabel(text, this);
    label->setTextFormat(Qt::PlainText);
    place(*label, rectangle);
}

ComboBox* SystemPanel::addChoices(const QRect& rectangle, const QString& name, const QString& help)
{
    auto* choices = add(new ComboBox(gui, ComboBox::Typing::readOnly, this), rectangle, name, help);
    Property::set(*choices, Property::TEXT, true);
    Property::set(*choices, Property::NOWHEEL, true);  // a notch must not change what sounds
    return choices;
}

QPushButton* SystemPanel::addButton(const QString& label, const QRect& rectangle, const QString& name,
                                    const QString& help)
{
    auto* button = add(new QPushButton(label, this), rectangle, name, help);
    button->setFocusPolicy(Qt::TabFocus);  // a click must not take the focus from playing
    return button;
}

QPushButton* SystemPanel::addSwitch(const QString& label, const QRect& rectangle, const Switch& setting)
{
    auto* button = addButton(label, rectangle, {}, {});
    makeSwitch(*button, setting, commands());
    return button;
}

/// In Tab order.
void SystemPanel::addControls()
{
    setPanelSize(SIZE);
    addScreens();
    addPorts();
    addSwitches();
}

void SystemPanel::addScreens()
{
    screens = new ScreenButtons(gui, this);
    place(*screens, at(0, 0, ScreenButtons::WIDTH));
    auto* files = addButton(tr("Files..."), at(0, 768, 860), tr("Files"),
                            tr("Files: loads, saves and arranges programs and banks, makes new banks, changes the size "
                               "of the bank, sets the default bank, imports files of version 2."));
    connect(files, &QPushButton::clicked, this, [this, files] { showFileMenu(*files); });
    const auto* setup = addButton(tr("Setup..."), at(0, 868, 960), tr("Setup"),
                                  tr("Setup: MIDI ports, global keyboard, default bank, record, display and window."));
    connect(setup, &QPushButton::clicked, this, [this] { gui.showSetupDialog(); });
}

void SystemPanel::addPorts()
{
    addLabel(tr("Output"), at(1, 0, 48));
    output = addChoices(at(1, 48, 280), tr("Default MIDI output"),
                        tr("Default MIDI output: MIDI events without an output of their own are sent there."));
    output->onChange = [this](int index) { commands().postChangeDefaultMidiOutput(specific(index)); };
    addLabel(tr("Clock"), at(1, 296, 336));
    tempoSource =
        addChoices(at(1, 336, 536), tr("Tempo source"),
                   tr("Tempo source: Internal uses the tempo above; an input uses the MIDI clock received there."));
    tempoSource->onChange = [this](int index) {
        gui.getEdits().change("Program", 0, {"tempoSource", std::to_string(index - 1)},
                              tr("tempo source").toStdString(), gui.getEdits().beginGesture());
    };
}

void SystemPanel::addSwitches()
{
    thruButton = addSwitch(tr("MIDI thru"), at(1, 552, 646), Switches::MIDI_THRU);
    keyboardButton = addSwitch(tr("Global keys"), at(1, 654, 748), Switches::GLOBAL_KEYBOARD);
    recordButton = addSwitch(tr("Record"), at(1, 768, 860), Switches::RECORD);
    const auto* save = addButton(tr("Save record"), at(1, 868, 960), tr("Save record"),
                                 tr("Save record: writes what was recorded to MIDI files in your music folder, one for "
                                    "each output, and empties the record."));
    connect(save, &QPushButton::clicked, this, [this] { saveRecord(); });
}
}  // namespace Gui::System
