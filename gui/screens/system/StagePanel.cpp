#include "gui/screens/system/StagePanel.h"

#include <QCursor>
#include <QPushButton>

#include "api/Bank.h"
#include "api/OrvGuiIF.h"
#include "api/OrvMessageManager.h"
#include "backend/files/RegistrySettings.h"
#include "backend/model/BankEdit.h"
#include "backend/model/Edit.h"
#include "backend/model/Program.h"
#include "gui/framework/ActivityLights.h"
#include "gui/framework/EditBox.h"
#include "gui/framework/EditBoxDialog.h"
#include "gui/framework/EditPoster.h"
#include "gui/framework/PopupMenu.h"
#include "gui/framework/Properties.h"
#include "gui/screens/system/ArrowButton.h"
#include "gui/screens/system/BeatLight.h"
#include "gui/screens/system/KeyBadge.h"
#include "gui/screens/system/ProgramButton.h"
#include "gui/screens/system/ProgramList.h"
#include "gui/screens/system/RecordGauge.h"
#include "gui/screens/system/SetListDialog.h"
#include "gui/screens/system/StatusText.h"
#include "gui/screens/system/TempoEdit.h"

namespace Gui::System
{
using namespace Backend;
using MidiEngine::MidiInputPorts;

namespace
{
constexpr QSize STAGE_SIZE(960, 96);
constexpr int STATUS_TOP = 72;
constexpr int STATUS_HEIGHT = 24;
constexpr int STATUS_LEFT = 104;
constexpr int STATUS_RIGHT = 680;
constexpr int DISCARD_LEFT = 600;
constexpr int STATUS_GAP = 8;
constexpr int EDITS_UNTIL_OFFER_ENDS = 2;

SelectType specificProgram(int number) { return {.kind = SelectType::Kind::specific, .value = number}; }

QRect inStatusLine(int left, int right) { return {left, STATUS_TOP, right - left, STATUS_HEIGHT}; }
}  // namespace

StagePanel::StagePanel(OrvGuiIF& owner, const GdiManager& manager, QWidget* parent)
    : Panel(manager), gui(owner), menu(new PopupMenu(this))
{
    setParent(parent);
    setPanelSize(STAGE_SIZE);
    addProgram();
    addTempo();
    addReset();
    addStatusLine();
    handleMidiInputPortsChanged(gui.getMidiInputPorts());
    handleProgramChanged(gui.getCurrentProgram());
    handleRetroRecordEnabledChanged(gui.getRegistrySettings().isRetroRecordEnabled());
    showStatus();
}

OrvMessageManager& StagePanel::commands() const { return gui.getOrvMessageManager(); }

// --- the controls, in Tab order

template <class Control>
Control* StagePanel::add(Control* control, const QRect& rectangle, const QString& name, const QString& help)
{
    place(*control, rectangle);
    control->setAccessibleName(name);
    Property::setHelp(*control, help);
    return control;
}

void StagePanel::addProgram()
{
    const auto addArrow = [this](Look::Direction direction, SelectType::Kind kind, const QRect& rectangle,
                                 const QString& name, const QString& help) {
        auto* arrow = add(new ArrowButton(getGdi(), direction, this), rectangle, name, help);
        arrow->setFocusPolicy(Qt::TabFocus);  // a click must not take the focus from playing
        connect(arrow, &QPushButton::pressed, this, [this, kind] { changeProgram({.kind = kind}); });
    };
    addArrow(Look::Direction::left, SelectType::Kind::down, {0, 0, 48, 64}, tr("Previous program"),
             tr("Changes to the previous program of the bank, or of the set list while it is on."));
    program =
        add(new ProgramButton(getGdi(), this), {52, 0, 564, 64}, tr("Program"),
            tr("Program: click for the list of programs, right-click to rename it, to undo, or for the set list. A "
               "star marks a program that was edited and not yet saved, and a bank with such programs."));
    program->onMenu = [this](const QPoint& position) { showProgramMenu(position); };
    connect(program, &QAbstractButton::clicked, this, &StagePanel::showProgramList);
    addArrow(Look::Direction::right, SelectType::Kind::up, {620, 0, 48, 64}, tr("Next program"),
             tr("Changes to the next program of the bank, or of the set list while it is on."));
}

void StagePanel::addTempo()
{
    beat = add(new BeatLight(getGdi(), this), {684, 24, 16, 16}, tr("Beat"), tr("Beat: lights up at each beat."));
    tempo = add(new TempoEdit(this), {708, 12, 72, 40}, tr("Tempo"),
                tr("Tempo: 20 to 250 beats per minute. Type a number, +5 or -5, or turn the wheel."));
    Property::set(*tempo, Property::TEXT, true);
    Property::setFont(*tempo, GdiManager::FontRole::stageTempo);
    tempo->setAlignment(Qt::AlignCenter);
    tempo->onChange = [this](const RelativeFixedValue& change) { changeTempo(change); };
    tempo->onLeave = [this] { leave(); };
    auto* tap = add(new QPushButton(tr("Tap"), this), {788, 12, 56, 40}, tr("Tap tempo"),
                    tr("Tap: click in time, twice or more, and the tempo follows. A key or a pedal can do it, too."));
    tap->setFocusPolicy(Qt::TabFocus);
    connect(tap, &QPushButton::pressed, this, [this] { commands().postTapTempo(); });
}

void StagePanel::addReset()
{
    auto* reset = add(new QPushButton(tr("RESET"), this), {896, 8, 64, 48}, tr("Reset"),
                      tr("Reset (panic): ends every note on all channels of all outputs."));
    reset->setFocusPolicy(Qt::TabFocus);
    Property::setColour(*reset, GdiManager::Role::frame);
    connect(reset, &QPushButton::pressed, this, [this] { commands().postResetOrv(); });
}

void StagePanel::addStatusLine()
{
    badge =
        add(new KeyBadge(getGdi(), this), inStatusLine(0, 96), tr("Keys"),
            tr("Where the keys of the computer go: KEYS PLAY, TYPING into a text, or ELSEWHERE, to another program. "
               "Click beside the controls, or press Escape, to play."));
    status =
        add(new StatusText(getGdi(), this), inStatusLine(STATUS_LEFT, STATUS_RIGHT), tr("Status"),
            tr("The output and its state. What is wrong is shown in red until it is put right; a click leads there."));
    connect(status, &QAbstractButton::clicked, this,
            [this] { status->hasTrouble() ? gui.showSetupDialog() : gui.showDefaultMidiOutputMenu(); });
    discard = add(new QPushButton(tr("Discard"), this), inStatusLine(DISCARD_LEFT, STATUS_RIGHT),
                  tr("Discard what was restored"),
                  tr("Goes back to what is saved. What was not saved when the program ended without closing was "
                     "restored; two edits end this offer."));
    discard->setFocusPolicy(Qt::TabFocus);
    discard->hide();
    connect(discard, &QPushButton::clicked, this, [this] {
        offerDiscard(false);
        commands().postDiscardRecovered();
    });
    inputs = add(new ActivityLights(getGdi(), tr("In"), this), inStatusLine(688, 800), tr("MIDI input"),
                 tr("A light for each MIDI input, which is lit while events come in."));
    output = add(new ActivityLights(getGdi(), tr("Out"), this), inStatusLine(804, 844), tr("MIDI output"),
                 tr("Lit while events go out."));
    output->setPorts({tr("Events go out")});
    record = add(new RecordGauge(getGdi(), this), inStatusLine(852, 960), tr("Fill of the record"),
                 tr("Fill of the record in percent, of the output with the most events. When it is full, the "
                    "oldest tenth is deleted. Its size is set in the setup."));
}

// --- program and tempo

void StagePanel::handleBankChanged(const Bank&)
{
    showProgram();
    if (setListDialog) setListDialog->showPrograms();
}

void StagePanel::handleSetListChanged(const SetList& list)
{
    if (list.isBroken() && !setList.isBroken())
        showMessage(tr("The set list of this bank cannot be read; it is left as it is."));
    setList = list;
    showProgram();
    if (setListDialog) setListDialog->showList(list);
}

void StagePanel::handleProgramChanged(const Program&)
{
    showTempo();
    showProgram();
}

void StagePanel::handleEditDone(const EditDone& done)
{
    if (gui.getEdits().isIdle()) wantedTempo.reset();
    showTempo();
    if (done.kind == EditDone::Kind::undone) showUndone(done.name);
    if (done.kind == EditDone::Kind::redone) showRedone(done.name);
    if (!done.name.empty() && ++editsOfOffer >= EDITS_UNTIL_OFFER_ENDS) offerDiscard(false);
}

void StagePanel::handleBankEditDone(const BankEditDone& done)
{
    const QString name = QString::fromStdString(done.name);
    switch (done.kind) {
        case BankEditDone::Kind::edited:
            return showMessage(tr("Done: %1").arg(name));
        case BankEditDone::Kind::undone:
            return showUndone(done.name);
        case BankEditDone::Kind::redone:
            return showRedone(done.name);
        case BankEditDone::Kind::failed:
        case BankEditDone::Kind::stale:
            return showMessage(tr("Not done: %1").arg(name));
    }
}

void StagePanel::showUndone(const std::string& name)
{
    showMessage(name.empty() ? tr("Nothing to undo") : tr("Undone: %1").arg(QString::fromStdString(name)));
}

void StagePanel::showRedone(const std::string& name)
{
    showMessage(name.empty() ? tr("Nothing to redo") : tr("Redone: %1").arg(QString::fromStdString(name)));
}

void StagePanel::handleProgramEdited(bool edited, int otherEdited)
{
    isEdited = edited;
    isBankEdited = edited || otherEdited > 0;
    showProgram();
}

void StagePanel::editProgram(const char* field, const std::string& value, const QString& name, std::uint32_t gesture)
{
    gui.getEdits().change("Program", 0, {field, value}, name.toStdString(), gesture);
}

void StagePanel::changeTempo(const RelativeFixedValue& change)
{
    const auto value = change.appliedTo(wantedTempo.value_or(gui.getCurrentProgram().tempo));
    if (value < Program::LOWEST_TEMPO || value > Program::HIGHEST_TEMPO) return;
    wantedTempo = static_cast<int>(value);
    editProgram("tempo", std::to_string(*wantedTempo), tr("tempo"), gui.getEdits().gestureOf("tempo"));
    showTempo();
}

void StagePanel::showTempo() { tempo->showTempo(wantedTempo.value_or(gui.getCurrentProgram().tempo)); }

/// Below the name: the bank and the next program, or that of the set list with the notes of both.
void StagePanel::showProgram()
{
    const Program& now = gui.getCurrentProgram();
    const auto& names = gui.getCurrentBank().programNames;
    const auto next = static_cast<std::size_t>(now.number) + 1;
    const auto marked = [](const std::string& name, bool isMarked) {
        return QString::fromStdString(name) + (isMarked ? QStringLiteral(" *") : QString());
    };
    QString below = marked(gui.getCurrentBankName(), isBankEdited);
    if (!setList.leads() && now.number >= 0 && next < names.size())
        below = tr("%1: next %2 %3").arg(below, QString::number(next + 1), QString::fromStdString(names[next]));
    const SetEntry* const entry = setList.leads() ? setList.find(setList.getCurrent()) : nullptr;
    const bool isPlaying = entry != nullptr && !entry->isMissing && entry->number == now.number;
    program->showSetEntry(isPlaying ? QString::fromStdString(entry->note) : QString(), describeNext());
    program->showProgram(now.number, marked(now.name, isEdited), below);
}

QString StagePanel::describeNext() const
{
    if (!setList.leads()) return {};
    const SetEntry* const next = setList.findNext();
    if (next == nullptr) return tr("End of the set list");
    const QString text = tr("Next: %1 %2").arg(QString::number(next->number + 1), QString::fromStdString(next->name));
    return text + (next->note.empty() ? QString() : " (" + QString::fromStdString(next->note) + ')');
}

void StagePanel::showSetList()
{
    if (gui.getCurrentBank().programNames.empty() || setListDialog) return;
    setListDialog = new SetListDialog(gui, setList, *this);
    setListDialog->setAttribute(Qt::WA_DeleteOnClose);
    setListDialog->open();
}

void StagePanel::showProgramList()
{
    const auto& names = gui.getCurrentBank().programNames;
    if (names.empty()) return;
    auto* list = new ProgramList(getGdi(), names, gui.getCurrentProgram().number, this);
    list->onChosen = [this](int number) { changeProgram(specificProgram(number)); };
    list->onArrange = [this] { gui.showProgramsDialog(); };
    list->showAt(isVisible() ? program->mapToGlobal(QPoint(0, program->height())) : QCursor::pos());
}

/// An edited program is kept as a draft, unless the user wants to be asked.
void StagePanel::changeProgram(const SelectType& select)
{
    const int setting = gui.getRegistrySettings().get<Settings::ASK_BEFORE_LOSS>();
    if (!isEdited || setting != static_cast<int>(BeforeLoss::ask)) return commands().postChangeProgram(select);
    gui.askBeforeLoss(OrvGuiIF::Loss::ofProgram, [this, select] {
        commands().postDiscardEdits();
        commands().postChangeProgram(select);
    });
}

void StagePanel::showProgramMenu(const QPoint& globalPosition)
{
    menu->clear();
    menu->addItem(tr("Rename..."));
    menu->addItem(tr("Save..."));
    menu->addItem(tr("Undo"));
    menu->addItem(tr("Redo"));
    menu->addItem(tr("Set List..."));
    QAction& follows = menu->addItem(tr("Follow the set list"));
    follows.setCheckable(true);
    follows.setChecked(setList.isOn());
    menu->setSelected(-1);
    menu->onChosen = [this](int item) {
        if (item == 0) rename();
        if (item == 1) gui.showSaveDialog();
        if (item == 2) gui.getEdits().undo();
        if (item == 3) gui.getEdits().redo();
        if (item == 4) showSetList();
        if (item == 5) commands().postEnableSetList(!setList.isOn());
    };
    menu->show(globalPosition);
}

void StagePanel::rename()
{
    auto* dialog =
        new EditBoxDialog(tr("Rename Program"), tr("Name:"), QString::fromStdString(gui.getCurrentProgram().name),
                          EditBoxDialog::Blank::refused, *this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QDialog::accepted, this, [this, dialog] {
        editProgram("name", dialog->getText().toStdString(), tr("program name"), gui.getEdits().beginGesture());
    });
    dialog->open();
}

/// Ends editing and gives the focus back to playing.
void StagePanel::leave()
{
    if (QWidget* edit = window()->focusWidget()) edit->clearFocus();
    gui.setFocus();
}

// --- the status line

void StagePanel::handleMidiInputPortsChanged(const MidiInputPorts& ports)
{
    QStringList names;
    for (const auto& port : ports)
        names << (port.enabled && port.found ? QString::fromStdString(port.getName()) : QString());
    inputs->setPorts(names);
}

void StagePanel::handleOutputChanged() { showStatus(); }

void StagePanel::handleRetroRecordEnabledChanged(bool on) { record->showRecording(on); }

void StagePanel::handleRetroRecordFillChanged(int percent) { record->showFill(percent); }

void StagePanel::handleHostStatus(const HostStatus& newStatus)
{
    host = newStatus;
    inputs->flash(host.activeInputs);
    beat->showClock(host.pulse, gui.getCurrentProgram().tempo);
    showStatus();
}

void StagePanel::displayMidiOutputEvent() { output->flash(1); }

void StagePanel::offerDiscard(bool on)
{
    editsOfOffer = 0;
    if (!on && discard->hasFocus()) gui.setFocus();
    discard->setVisible(on);
    place(*status, inStatusLine(STATUS_LEFT, on ? DISCARD_LEFT - STATUS_GAP : STATUS_RIGHT));
}

void StagePanel::showKeyTarget(KeyTarget target) { badge->show(target); }

void StagePanel::showMessage(const QString& text) { status->showMessage(text); }

void StagePanel::showStatus()
{
    const int index = gui.getDefaultMidiOutput();
    QStringList parts{
        tr("Output: %1").arg(index < 0 ? tr("none") : QString::fromStdString(gui.getMidiOutputName(index)))};
    if (!host.system.empty()) parts << QString::fromStdString(host.system);
    status->showState(parts.join(QStringLiteral("   ")));
    status->showTrouble(findTrouble());
}

/// Why nothing can be heard, and where that is put right; empty if nothing is wrong.
QString StagePanel::findTrouble() const
{
    const auto& ports = gui.getMidiOutputPorts();
    const int index = gui.getDefaultMidiOutput();
    if (index < 0 || static_cast<std::size_t>(index) >= ports.size()) return tr("No output is chosen. Setup");
    const auto& port = ports[static_cast<std::size_t>(index)];
    const QString name = QString::fromStdString(port.getName());
    if (!port.enabled) return tr("No sound: the output \"%1\" is switched off. Setup").arg(name);
    if (port.found && !port.couldNotOpen) return {};
    if (!host.trouble.empty()) return tr("No sound: %1. Setup").arg(QString::fromStdString(host.trouble));
    return port.found ? tr("No sound: \"%1\" could not be opened. Setup").arg(name)
                      : tr("No sound: \"%1\" is not plugged in. Setup").arg(name);
}
}  // namespace Gui::System
