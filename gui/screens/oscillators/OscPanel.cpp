#include "gui/screens/oscillators/OscPanel.h"

#include <QEvent>
#include <QPushButton>
#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

#include "api/OrvGuiIF.h"
#include "api/OrvIF.h"
#include "backend/messages/OscMessageManager.h"
#include "backend/model/PresetSections.h"
#include "backend/values/NoteIntervals.h"
#include "gui/forms/EditableSections.h"
#include "gui/forms/RecordForm.h"
#include "gui/framework/EditPoster.h"
#include "gui/framework/GdiManager.h"
#include "gui/framework/GuiMessageManagerMaster.h"
#include "gui/presets/SectionRow.h"
#include "gui/screens/oscillators/OscStrip.h"

namespace Gui::Oscillators
{
using namespace Backend;
using Backend::Oscillators::Oscillator;
using Command = Forms::RecordEditor::Command;

namespace
{
constexpr int WIDTH = 960;  // logical pixels, as all of these
constexpr int MARGIN = 8;
constexpr int LIST_TOP = 34;
constexpr int FORM_COLUMNS = 3;
constexpr auto SHOW_INTERVAL = std::chrono::milliseconds(33);
}  // namespace

OscPanel::OscPanel(OrvGuiIF& owner, Panel* around)
    : Panel(around),
      gui(owner),
      editor(records, owner.getEdits(), [this](const QString& text) { gui.displayMessage(text.toStdString()); }),
      messages(*this),
      list(new OscCtl(owner, records, editor, *this, this))
{
    // Before the settings, which are made from the lists.
    editor.observe(*this, [this] {
        if (editor.isOpen()) lists = Forms::takeLists(gui);
        selectionChanged();
    });
    makeTopRow();
    form = new Forms::RecordForm(gui, editor, this, FORM_COLUMNS);
    form->installEventFilter(this);
    editor.observe(*this, [this] { fit(); });
    nextShow.setSingleShot(true);
    connect(&nextShow, &QTimer::timeout, this, [this] { showValues(); });
    fit();
    gui.getEditableSections().add(editor, *list);
    gui.getGuiMessageManagerMaster().addMessageManager(&messages);
}

void OscPanel::makeTopRow()
{
    auto& row = *new Preset::SectionRow(gui, PresetSections::OSCILLATORS, this,
                                        [this] { return editor.getSelection().getSelected(); });
    place(row, {row.PLACE, row.SIZE});
    connect(&row.addButton(tr("Add"), tr("Add oscillator"),
                           tr("Adds an oscillator before the selected one, or at the end.")),
            &QPushButton::clicked, [this] { addOscillator(); });
    connect(&row.addButton(tr("Delete"), tr("Delete oscillators"),
                           tr("Deletes the selected oscillators, or the last one.")),
            &QPushButton::clicked, [this] {
                if (editor.getSelection().getSelected().empty() && records.size() > 0)
                    editor.getSelection().select({static_cast<Id>(records.size()) - 1});
                editor.execute(Command::remove);
            });
    settingsButton = &row.addButton(tr("Settings"), tr("Settings of oscillators"),
                                    tr("Shows the settings of the selected oscillators beneath them."));
    settingsButton->setCheckable(true);
    connect(settingsButton, &QPushButton::clicked, [this](bool on) {
        if (on && editor.getSelection().getSelected().empty() && records.size() > 0) editor.getSelection().select({0});
        editor.setOpen(on);
    });
}

/// The rows of the form are shown, and have a size, after the event in which they were made.
bool OscPanel::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() == QEvent::LayoutRequest) fit();
    return Panel::eventFilter(object, event);
}

void OscPanel::scaleChanged()
{
    fit();
    list->follow();
}

void OscPanel::fit()
{
    settingsButton->setChecked(editor.isOpen());
    const int listHeight = list->getLogicalHeight();
    place(*list, {MARGIN, LIST_TOP, OscStrip::WIDTH, listHeight});
    int bottom = LIST_TOP + listHeight + MARGIN;
    if (!form->isHidden()) {
        const int height = static_cast<int>(std::ceil(form->sizeHint().height() / getGdi().getScale()));
        place(*form, {MARGIN, bottom, WIDTH - 2 * MARGIN, height});
        bottom += height + MARGIN;
    }
    setPanelSize({WIDTH, bottom});
}

// --- what is selected

/// The backend has the same selection.
void OscPanel::selectionChanged()
{
    const Forms::Selection& selection = editor.getSelection();
    bool isOther = false;
    for (const Id id : records.getIds()) {
        const bool selected = selection.isSelected(id);
        isOther |= std::exchange(records.at(id).selected, selected) != selected;
    }
    if (isOther) {
        selectedDuringEdit = !editor.getEdits().isIdle();
        gui.getOrvIF().getOscMessageManager().postSetSelected(selection.getSelected());
    }
    list->follow();
}

void OscPanel::handleOscSelected(Id id, bool selected)
{
    editor.report([this, id, selected] {
        if (!records.has(id)) return;
        records.at(id).selected = selected;
        Forms::Selection& selection = editor.getSelection();
        if (selection.isSelected(id) == selected) return;
        std::vector<Id> all = selection.getSelected();
        std::erase(all, id);
        if (selected) all.push_back(id);
        selection.select(all);
    });
}

// --- the records

void OscPanel::handleOscillators(const Backend::Oscillators::OscList& newList)
{
    awaited.clear();
    editor.report([this, all = newList.getOscillators()] { take(all); });
}

/// A value stays as long as the oscillator in its place sends the same event.
void OscPanel::take(const std::vector<Oscillator>& all)
{
    for (std::size_t i = 0; i < records.size(); ++i) {
        const Id id = static_cast<Id>(i);
        if (i >= all.size() || all[i].midiMessage != records.at(id).midiMessage) list->forgetValue(id);
    }
    records.take(all);
    Forms::Selection& selection = editor.getSelection();
    selection.setRecords(records.getIds());
    std::vector<Id> selected;
    for (const Id id : records.getIds())
        if (records.at(id).selected) selected.push_back(id);
    if (!std::exchange(selectedDuringEdit, false) && selected != selection.getSelected()) selection.select(selected);
}

void OscPanel::change(Id id, std::function<void(Oscillator& oscillator)> set)
{
    editor.report([this, id, change = std::move(set)] {
        if (records.has(id)) change(records.at(id));
    });
}

void OscPanel::handleOscPlaying(Id id, bool playing)
{
    change(id, [playing](Oscillator& oscillator) { oscillator.playing = playing; });
}

/// The report of a speed that the user has set is older than the next one that he sets.
void OscPanel::handleOscSpeed(Id id, std::int32_t speed)
{
    const auto own = awaited.find(id);
    if (own != awaited.end() && --own->second > 0) return;
    if (own != awaited.end()) awaited.erase(own);
    change(id, [speed](Oscillator& oscillator) { oscillator.speed = speed; });
}

void OscPanel::handleOscSpeedMode(Id id, TimeIntervalType::Kind mode)
{
    change(id, [mode](Oscillator& oscillator) { oscillator.speedMode = {mode}; });
}

// --- values

void OscPanel::handleOscValue(Id id, std::int32_t value)
{
    list->setValue(id, value);
    if (list->isVisible() && !nextShow.isActive()) showValues();
}

void OscPanel::showValues()
{
    if (list->showValues()) nextShow.start(SHOW_INTERVAL);
}

// --- what the user does

void OscPanel::setPlaying(Id id, bool on)
{
    for (const Id each : records.getTogether(id, editor.getSelection())) records.at(each).playing = on;
    gui.getOrvIF().getOscMessageManager().postChangePlaying({SelectType::Kind::specific, id},
                                                            {on ? OnOffToggle::State::on : OnOffToggle::State::off});
    list->follow();
}

void OscPanel::turnSpeed(Id id, int speed)
{
    for (const Id each : records.getTogether(id, editor.getSelection())) {
        records.at(each).speed = speed;
        ++awaited[each];
    }
    gui.getOrvIF().getOscMessageManager().postChangeSpeed(id, {.value = speed});
    list->follow();
}

void OscPanel::setSpeed(Id id, int speed)
{
    if (speed < Oscillator::FASTEST)
        editor.say(tr("The shortest cycle is %1.").arg(QString::fromStdString(noteIntervalName(Oscillator::FASTEST))));
    const auto together = records.getTogether(id, editor.getSelection());
    editor.change(together, tr("speed"), editor.getEdits().gestureOf("speed of oscillator " + std::to_string(id)), [&] {
        for (const Id each : together) records.at(each).speed = std::max(speed, Oscillator::FASTEST);
    });
    list->follow();
}

void OscPanel::setSpeedMode(Id id, TimeIntervalType mode)
{
    const auto together = records.getTogether(id, editor.getSelection());
    editor.change(together, tr("note or pulses"), editor.getEdits().beginGesture(), [&] {
        for (const Id each : together) records.at(each).speedMode = mode;
    });
}

/// Its settings open, because it has no event yet.
void OscPanel::addOscillator()
{
    const auto selected = editor.getSelection().getSelected();
    const Id place = selected.empty() ? static_cast<Id>(records.size()) : selected.front();
    editor.getEdits().post({.section = Oscillator::SECTION,
                            .name = tr("add %1").arg(records.nameOf(place)).toStdString(),
                            .gesture = editor.getEdits().beginGesture(),
                            .records = {{.kind = RecordEdit::Kind::add, .id = place}}});
    editor.setOpen(true);
}
}  // namespace Gui::Oscillators
