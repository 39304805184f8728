#include "gui/screens/system/SystemPanel.h"

#include <QLabel>
#include <QPushButton>

#include "api/OrvGuiIF.h"
#include "api/OrvMessageManager.h"
#include "gui/framework/ComboBox.h"
#include "gui/framework/Properties.h"
#include "gui/framework/Switches.h"
#include "gui/screens/system/ArrowButton.h"
#include "gui/screens/system/ProgramNameComboBox.h"
#include "gui/screens/system/RecordGauge.h"
#include "gui/screens/system/ScreenButtons.h"
#include "gui/screens/system/TempoEdit.h"

// The controls of the system screen in four rows, each with its place, its names and the command it posts.
namespace Gui::System
{
namespace
{
constexpr QSize SIZE(760, 92);
constexpr int HEIGHT = 20;
constexpr int ROWS[] = {0, 24, 48, 72};

/// From `left` to `right`, in one of the rows.
QRect at(int row, int left, int right) { return {left, ROWS[row], right - left, HEIGHT}; }

// The columns; each reaches from one of these to the next, less a gap
constexpr int SPACE = 4;
constexpr int WIDE_SPACE = 12;
constexpr int CONTROLS = 58;
constexpr int CHOICES = 144;
constexpr int SECOND_LABELS = 336;
constexpr int SECOND_CONTROLS = 384;
constexpr int BANK_SIZE = 496;
constexpr int SWITCHES = 580;
constexpr int LAST_BUTTONS = 668;
constexpr int END = 760;
constexpr int ARROW = 20;
constexpr int FILE_BUTTON = 82;

SelectType specific(int number) { return {.kind = SelectType::Kind::specific, .value = number}; }
}  // namespace

template <class Control>
Control* SystemPanel::add(Control* control, const QRect& place, const QString& name, const QString& help)
{
    control->setGeometry(place);
    control->setAccessibleName(name);
    Property::setHelp(*control, help);
    return control;
}

QLabel* SystemPanel::addLabel(const QString& text, const QRect& place)
{
    auto* label = new QLabel(text, this);
    label->setTextFormat(Qt::PlainText);
    label->setGeometry(place);
    return label;
}

QLabel* SystemPanel::addValue(const QRect& place)
{
    QLabel* value = addLabel({}, place);
    Property::set(*value, Property::TEXT, true);
    return value;
}

ComboBox* SystemPanel::addChoices(const QRect& place, const QString& name, const QString& help)
{
    auto* choices = add(new ComboBox(gui, ComboBox::Typing::readOnly, this), place, name, help);
    Property::set(*choices, Property::TEXT, true);
    return choices;
}

QPushButton* SystemPanel::addButton(const QString& label, const QRect& place, const QString& name, const QString& help)
{
    auto* button = add(new QPushButton(label, this), place, name, help);
    button->setFocusPolicy(Qt::TabFocus);  // a click must not take the focus from playing
    return button;
}

QPushButton* SystemPanel::addSwitch(const QString& label, const QRect& place, const Switch& setting)
{
    auto* button = addButton(label, place, {}, {});
    makeSwitch(*button, setting, commands());
    return button;
}

/// In Tab order.
void SystemPanel::addControls()
{
    setPanelSize(SIZE);
    addProgram();
    addBank();
    addTempo();
    addOutput();
    addSwitches();
    addScreens();
    addRecord();
    addFiles();
}

void SystemPanel::addProgram()
{
    addLabel(tr("Program"), at(0, 0, CONTROLS - SPACE));
    const auto addArrow = [this](Look::Direction direction, SelectType::Kind kind, int left, const QString& name,
                                 const QString& help) {
        auto* arrow = add(new ArrowButton(gui.getGdiManager(), direction, this), at(0, left, left + ARROW), name, help);
        arrow->setFocusPolicy(Qt::TabFocus);
        connect(arrow, &QPushButton::clicked, this, [this, kind] { commands().postChangeProgram({.kind = kind}); });
    };
    addArrow(Look::Direction::left, SelectType::Kind::down, CONTROLS, tr("Previous program"),
             tr("Changes to the previous program of the bank."));
    addArrow(Look::Direction::right, SelectType::Kind::up, CONTROLS + ARROW + 2, tr("Next program"),
             tr("Changes to the next program of the bank."));
    programNumber = addValue(at(0, CONTROLS + 2 * ARROW + SPACE, CHOICES - SPACE));
    programNumber->setAlignment(Qt::AlignRight | Qt::AlignVCenter);

    programs = add(new ProgramNameComboBox(gui, this), at(0, CHOICES, SECOND_LABELS - WIDE_SPACE), tr("Program"),
                   tr("Program: choose one from the list, or type a new name for this one. The bank gets the name when "
                      "you save the program."));
    Property::set(*programs, Property::TEXT, true);
    programs->onChange = [this](int number) { commands().postChangeProgram(specific(number)); };
    programs->onRename = [this](const QString& name) { commands().postChangeProgramName(name.toStdString()); };
    programs->onLeave = [this] { leave(); };
}

void SystemPanel::addBank()
{
    addLabel(tr("Bank"), at(0, SECOND_LABELS, SECOND_CONTROLS - SPACE));
    bankName = addValue(at(0, SECOND_CONTROLS, BANK_SIZE - SPACE));
    bankSize = addValue(at(0, BANK_SIZE, SWITCHES - SPACE));
    const auto* setup = addButton(tr("SETUP..."), at(0, SWITCHES, LAST_BUTTONS - SPACE), tr("Setup"),
                                  tr("Setup: MIDI ports, global keyboard, default bank, record, display and window."));
    connect(setup, &QPushButton::clicked, this, [this] { gui.showSetupDialog(); });
    const auto* reset = addButton(tr("RESET"), at(0, LAST_BUTTONS, END), tr("Reset"),
                                  tr("Reset (panic): ends every note on all channels of all outputs."));
    connect(reset, &QPushButton::pressed, this, [this] { commands().postResetOrv(); });
}

void SystemPanel::addTempo()
{
    addLabel(tr("Tempo"), at(1, 0, CONTROLS - SPACE));
    tempo = add(new TempoEdit(this), at(1, CONTROLS, CONTROLS + 2 * ARROW + 2), tr("Tempo"),
                tr("Tempo: 20 to 250 beats per minute. Type a number, +5 or -5, or turn the wheel."));
    Property::set(*tempo, Property::TEXT, true);
    tempo->onChange = [this](const RelativeFixedValue& change) { commands().postChangeTempo(change, true); };
    tempo->onLeave = [this] { leave(); };

    addLabel(tr("Clock"), at(1, CONTROLS + 2 * ARROW + 2 * SPACE, CHOICES - SPACE));
    tempoSource = addChoices(
        at(1, CHOICES, SECOND_LABELS - WIDE_SPACE), tr("Tempo source"),
        tr("Tempo source: Internal uses the tempo on the left; an input uses the MIDI clock received there."));
    tempoSource->onChange = [this](int index) { commands().postSetTempoSource(index - 1, true); };
}

void SystemPanel::addOutput()
{
    addLabel(tr("Output"), at(1, SECOND_LABELS, SECOND_CONTROLS - SPACE));
    output = addChoices(at(1, SECOND_CONTROLS, SWITCHES - SPACE), tr("Default MIDI output"),
                        tr("Default MIDI output: MIDI events without an output of their own are sent there."));
    output->onChange = [this](int index) { commands().postChangeDefaultMidiOutput(specific(index)); };
}

void SystemPanel::addSwitches()
{
    thruButton = addSwitch(tr("MIDI THRU"), at(1, SWITCHES, LAST_BUTTONS - SPACE), Switches::MIDI_THRU);
    keyboardButton = addSwitch(tr("GLOBAL KEYS"), at(1, LAST_BUTTONS, END), Switches::GLOBAL_KEYBOARD);
}

void SystemPanel::addScreens()
{
    screens = new ScreenButtons(gui, this);
    screens->move(at(2, 0, SWITCHES).topLeft());
}

void SystemPanel::addRecord()
{
    recordButton = addSwitch(tr("RECORD"), at(2, SWITCHES, LAST_BUTTONS - SPACE), Switches::RECORD);
    recordGauge = add(new RecordGauge(gui.getGdiManager(), this), at(3, SWITCHES, END), tr("Fill of the record"),
                      tr("Fill of the record in percent, of the output with the most events. When it is full, the "
                         "oldest tenth is deleted. Its size is set in the setup."));
    const auto* save = addButton(tr("SAVE REC"), at(2, LAST_BUTTONS, END), tr("Save record"),
                                 tr("Save record: writes what was recorded to MIDI files in your music folder, one for "
                                    "each output, and empties the record."));
    connect(save, &QPushButton::clicked, this, [this] { saveRecord(); });
}

void SystemPanel::addFiles()
{
    addLabel(tr("Files"), at(3, 0, CONTROLS - SPACE));
    int left = CONTROLS;
    const auto addNext = [this, &left](const QString& label, const QString& name, const QString& help) {
        QPushButton* button = addButton(label, at(3, left, left + FILE_BUTTON), name, help);
        left += FILE_BUTTON + SPACE;
        return button;
    };
    connect(addNext(tr("LOAD"), tr("Load"), tr("Load: opens a bank (.bnk) or a single program (.prg).")),
            &QPushButton::clicked, this, [this] { gui.showLoadDialog(); });
    connect(addNext(tr("SAVE"), tr("Save"), tr("Save: saves the program into a bank, or as a file of its own.")),
            &QPushButton::clicked, this, [this] { gui.showSaveDialog(); });
    auto* more = addNext(tr("MORE"), tr("More about files"),
                         tr("More: changes the size of the bank, sets the default bank, imports files of version 2."));
    connect(more, &QPushButton::clicked, this, [this, more] { showFileMenu(*more); });
}
}  // namespace Gui::System
