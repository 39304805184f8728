#include "gui/screens/system/SystemPanel.h"

#include <QLabel>
#include <QPushButton>

#include "api/OrvMessageManager.h"
#include "gui/OrvGuiIF.h"
#include "gui/framework/ComboBox.h"
#include "gui/framework/Properties.h"
#include "gui/screens/system/ArrowButton.h"
#include "gui/screens/system/ProgramNameComboBox.h"
#include "gui/screens/system/RecordGauge.h"
#include "gui/screens/system/ScreenButtons.h"
#include "gui/screens/system/TempoEdit.h"

// What the system screen consists of: four rows, each control with its place, its names and the wish it utters.
namespace Gui::System
{
namespace
{
constexpr QSize SIZE(760, 92);
constexpr int HEIGHT = 20;
constexpr int ROWS[] = {0, 24, 48, 72};

/// From `left` to `right`, in one of the rows.
QRect at(int row, int left, int right) { return {left, ROWS[row], right - left, HEIGHT}; }

// The columns, each from one of these to the next, with a gap before it
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
OnOffToggle onOrOff(bool on) { return {on ? OnOffToggle::State::on : OnOffToggle::State::off}; }
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
    button->setFocusPolicy(Qt::TabFocus);  // a click leaves the keyboard to whoever plays on it
    return button;
}

QPushButton* SystemPanel::addSwitch(const QString& label, const QRect& place, const QString& name, const QString& help)
{
    auto* button = addButton(label, place, name, help);
    button->setCheckable(true);
    return button;
}

/// In the order in which Tab goes through them.
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
             tr("Goes to the program before this one."));
    addArrow(Look::Direction::right, SelectType::Kind::up, CONTROLS + ARROW + 2, tr("Next program"),
             tr("Goes to the program behind this one."));
    programNumber = addValue(at(0, CONTROLS + 2 * ARROW + SPACE, CHOICES - SPACE));
    programNumber->setAlignment(Qt::AlignRight | Qt::AlignVCenter);

    programs = add(new ProgramNameComboBox(gui, this), at(0, CHOICES, SECOND_LABELS - WIDE_SPACE), tr("Program"),
                   tr("Program: choose one from the list, or type a new name for this one. A name is kept in the bank "
                      "when the program is saved."));
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
                                  tr("Setup: MIDI ports, what is played and recorded, the window and more."));
    connect(setup, &QPushButton::clicked, this, [this] { gui.showSetupDialog(); });
    const auto* reset =
        addButton(tr("RESET"), at(0, LAST_BUTTONS, END), tr("Reset"), tr("Reset (panic): ends every note."));
    connect(reset, &QPushButton::pressed, this, [this] { commands().postResetOrv(); });
}

void SystemPanel::addTempo()
{
    addLabel(tr("Tempo"), at(1, 0, CONTROLS - SPACE));
    tempo = add(new TempoEdit(this), at(1, CONTROLS, CONTROLS + 2 * ARROW + 2), tr("Tempo"),
                tr("Tempo: beats per minute, 20 to 250. Type it, or turn the wheel."));
    Property::set(*tempo, Property::TEXT, true);
    tempo->onChange = [this](const RelativeFixedValue& wish) { commands().postChangeTempo(wish, true); };
    tempo->onLeave = [this] { leave(); };

    addLabel(tr("Clock"), at(1, CONTROLS + 2 * ARROW + 2 * SPACE, CHOICES - SPACE));
    tempoSource =
        addChoices(at(1, CHOICES, SECOND_LABELS - WIDE_SPACE), tr("Tempo source"),
                   tr("Tempo source: the tempo beside it, or the MIDI clock that comes in at one of the inputs."));
    tempoSource->onChange = [this](int index) { commands().postSetTempoSource(index - 1, true); };
}

void SystemPanel::addOutput()
{
    addLabel(tr("Output"), at(1, SECOND_LABELS, SECOND_CONTROLS - SPACE));
    output = addChoices(at(1, SECOND_CONTROLS, SWITCHES - SPACE), tr("Default MIDI output"),
                        tr("Default MIDI output: where everything sounds that names no output of its own."));
    output->onChange = [this](int index) { commands().postChangeDefaultMidiOutput(specific(index)); };
}

void SystemPanel::addSwitches()
{
    thruButton = addSwitch(tr("MIDI THRU"), at(1, SWITCHES, LAST_BUTTONS - SPACE), tr("MIDI thru"),
                           tr("MIDI Thru: what comes in also sounds."));
    connect(thruButton, &QPushButton::clicked, this,
            [this](bool on) { commands().postChangeMidiThru(onOrOff(on), true); });
    keyboardButton = addSwitch(tr("GLOBAL KEYS"), at(1, LAST_BUTTONS, END), tr("Global keyboard"), {});
    connect(keyboardButton, &QPushButton::clicked, this,
            [this](bool on) { commands().postChangeGlobalKeyboard(onOrOff(on), true); });
}

void SystemPanel::addScreens()
{
    screens = new ScreenButtons(gui, this);
    screens->move(at(2, 0, SWITCHES).topLeft());
}

void SystemPanel::addRecord()
{
    recordButton = addSwitch(tr("RECORD"), at(2, SWITCHES, LAST_BUTTONS - SPACE), tr("Record"),
                             tr("Record: keeps what was played lately, so that it can be saved afterwards."));
    connect(recordButton, &QPushButton::clicked, this, [this](bool on) { commands().postEnableRetroRecord(on); });
    recordGauge =
        add(new RecordGauge(gui.getGdiManager(), this), at(3, SWITCHES, END), tr("Fill of the record"),
            tr("The record: how full it is, of the output that was played on most. When it is full its oldest "
               "tenth goes for what is played next. The setup says how large it is."));
    const auto* save = addButton(
        tr("SAVE REC"), at(2, LAST_BUTTONS, END), tr("Save record"),
        tr("Save Record: makes MIDI files of what was played lately, one for each output, in your music folder."));
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
    connect(addNext(tr("LOAD"), tr("Load"), tr("Load: another bank, or one program of a file.")), &QPushButton::clicked,
            this, [this] { gui.showLoadDialog(); });
    connect(addNext(tr("SAVE"), tr("Save"), tr("Save: the program into a bank, or as a file of its own.")),
            &QPushButton::clicked, this, [this] { gui.showSaveDialog(); });
    auto* more = addNext(tr("MORE"), tr("More about files"),
                         tr("More: the size of the bank, the bank for the start, and files of version 2."));
    connect(more, &QPushButton::clicked, this, [this, more] { showFileMenu(*more); });
}
}  // namespace Gui::System
