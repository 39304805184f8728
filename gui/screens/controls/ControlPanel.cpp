#include "gui/screens/controls/ControlPanel.h"

#include <QEvent>
#include <QPushButton>
#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

#include "api/OrvGuiIF.h"
#include "api/OrvIF.h"
#include "backend/messages/ControlMessageManager.h"
#include "backend/model/PresetSections.h"
#include "gui/forms/EditableSections.h"
#include "gui/forms/LearnButton.h"
#include "gui/forms/RecordForm.h"
#include "gui/framework/EditPoster.h"
#include "gui/framework/GdiManager.h"
#include "gui/framework/GuiMessageManagerMaster.h"
#include "gui/presets/SectionRow.h"
#include "gui/screens/controls/ControlGrid.h"
#include "gui/screens/controls/ValueEdit.h"

namespace Gui::Controls
{
using Backend::Controls::Control;
using Command = Forms::RecordEditor::Command;

namespace
{
constexpr int WIDTH = 960;  // logical pixels, as all of these
constexpr int MARGIN = 8;
constexpr int GRID_TOP = 34;
constexpr int FORM_COLUMNS = 3;
constexpr auto SHOW_INTERVAL = std::chrono::milliseconds(33);
}  // namespace

ControlPanel::ControlPanel(OrvGuiIF& owner, Panel* around)
    : Panel(around),
      gui(owner),
      editor(records, owner.getEdits(), [this](const QString& text) { gui.displayMessage(text.toStdString()); }),
      messages(*this)
{
    // Before the settings, which are made from the lists.
    editor.observe(*this, [this] {
        if (editor.isOpen()) lists = Forms::takeLists(gui);
        selectionChanged();
    });
    grid = new ControlGrid(owner, records, editor, edits, this);
    grid->onValue = [this](Id id, int value) { setValue(id, value); };
    grid->onRelease = [this](Id id) { release(id); };
    nextShow.setSingleShot(true);
    connect(&nextShow, &QTimer::timeout, this, [this] { showChanged(); });
    makeTopRow();
    makeSettings();
    editor.observe(*this, [this] { fit(); });
    fit();
    gui.getEditableSections().add(editor, *grid);
    gui.getGuiMessageManagerMaster().addMessageManager(&messages);
}

void ControlPanel::makeTopRow()
{
    auto& row =
        *new Preset::SectionRow(gui, Backend::PresetSections::CONTROLS, this, [this] { return edits.getSelected(); });
    place(row, {row.PLACE, row.SIZE});
    connect(&row.addButton(tr("Add"), tr("Add control"),
                           tr("Adds a knob in the selected empty cell, or in the first one.")),
            &QPushButton::clicked, [this] { edits.add(); });
    deleteButton = &row.addButton(tr("Delete"), tr("Delete controls"), tr("Deletes the selected controls."));
    connect(deleteButton, &QPushButton::clicked, [this] { editor.execute(Command::remove); });
    editButton = &row.addButton(
        tr("Edit"), tr("Edit controls"),
        tr("On: controls are dragged to their places, and beneath them stand the settings of those that are selected. "
           "Off: they play."));
    editButton->setCheckable(true);
    connect(editButton, &QPushButton::clicked, [this](bool on) { editor.setOpen(on); });
    learn = new Forms::LearnButton(gui.getLearner(), {.midiEvent = true}, &row);
    row.addButton(*learn);
    learn->onLearned = [this](const auto& input) {
        edits.setEvent(std::get<Backend::MidiEngine::OrvMidiMessage>(input).getMidiMessage());
    };
}

void ControlPanel::makeSettings()
{
    form = new Forms::RecordForm(gui, editor, this, FORM_COLUMNS,
                                 {.fieldsOf = [this](Id id) { return records.fieldsOf(id); },
                                  .getVersion = [this] { return static_cast<std::uint64_t>(records.countEvents()); }});
    form->installEventFilter(this);
}

/// The rows of the form are shown, and have a size, after the event in which they were made.
bool ControlPanel::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() == QEvent::LayoutRequest) fit();
    return Panel::eventFilter(object, event);
}

void ControlPanel::scaleChanged()
{
    fit();
    grid->follow();
}

void ControlPanel::fit()
{
    const bool isSelected = !edits.getSelected().empty();
    deleteButton->setEnabled(isSelected);
    learn->setEnabled(isSelected);
    editButton->setChecked(editor.isOpen());
    const QSize size = grid->getLogicalSize();
    int bottom = GRID_TOP + size.height() + MARGIN;
    place(*grid, {{MARGIN, GRID_TOP}, size.expandedTo({records.getControls().size() == 0 ? WIDTH / 2 : 0, 0})});
    if (!form->isHidden()) {
        const int height = static_cast<int>(std::ceil(form->sizeHint().height() / getGdi().getScale()));
        place(*form, {MARGIN, bottom, WIDTH - 2 * MARGIN, height});
        bottom += height + MARGIN;
    }
    setPanelSize({WIDTH, bottom});
}

// --- what is selected

/// The backend has the same selection.
void ControlPanel::selectionChanged()
{
    Forms::Selection& selection = editor.getSelection();
    const auto empty = records.getEmptyCell();
    const bool isUsed = empty && editor.isOpen() && selection.isSelected(ControlRecords::idOf(*empty));
    if (empty && !isUsed) {
        records.setEmptyCell(std::nullopt);
        selection.setRecords(records.getIds());
    }
    auto& commands = gui.getOrvIF().getControlMessageManager();
    for (const Id id : records.getIds()) {
        Control* const control = records.find(id);
        if (control == nullptr || control->selected == selection.isSelected(id)) continue;
        control->selected = selection.isSelected(id);
        commands.postSetSelected(control->cell, control->selected);
    }
    grid->follow();
}

void ControlPanel::handleControlSelected(const Cell& cell, bool selected)
{
    if (Control* const control = reported.findElement(cell)) control->selected = selected;
    const Id id = ControlRecords::idOf(cell);
    editor.report([this, id, selected] {
        Control* const control = records.find(id);
        Forms::Selection& selection = editor.getSelection();
        if (control == nullptr || (control->selected == selected && selection.isSelected(id) == selected)) return;
        control->selected = selected;
        std::vector<Id> all = selection.getSelected();
        std::erase(all, id);
        if (selected) all.push_back(id);
        selection.select(all);
    });
}

// --- the records

void ControlPanel::handleControls(const Backend::Controls::ControlMap& controls)
{
    reported = controls;
    awaited.clear();
    editor.report([this] { take(); });  // an older report that waits shows the newest one
}

void ControlPanel::take()
{
    records.take(reported);
    Forms::Selection& selection = editor.getSelection();
    selection.setRecords(records.getIds());
    std::vector<Id> selected;
    for (const Id id : records.getIds()) {
        const Control* const control = records.find(id);
        if (control == nullptr ? selection.isSelected(id) : control->selected) selected.push_back(id);
    }
    if (selected != selection.getSelected()) selection.select(selected);
}

// --- values

void ControlPanel::setValue(Id id, int value)
{
    Control* const control = records.find(id);
    if (control == nullptr) return;
    control->store(value);
    ++awaited[id];
    gui.getOrvIF().getControlMessageManager().postSetValue(control->cell, value);
}

void ControlPanel::release(Id id)
{
    const Control* const control = records.find(id);
    if (control == nullptr || control->release < 0) return;
    setValue(id, control->release);
    grid->showValue(id);
}

/// The report of a value that the user has set is older than the next one that he sets.
void ControlPanel::handleControlValue(const Cell& cell, std::int32_t value)
{
    const Id id = ControlRecords::idOf(cell);
    if (Control* const control = reported.findElement(cell)) control->value = value;
    const auto own = awaited.find(id);
    if (own != awaited.end() && --own->second > 0) return;
    if (own != awaited.end()) awaited.erase(own);
    Control* const control = records.find(id);
    if (control == nullptr) return;
    control->value = value;
    if (!grid->isVisible()) return;
    changed.insert(id);
    if (!nextShow.isActive()) showChanged();
}

void ControlPanel::showChanged()
{
    if (changed.empty()) return;
    for (const Id id : std::exchange(changed, {})) grid->showValue(id);
    form->showSelected();
    nextShow.start(SHOW_INTERVAL);
}

void ControlPanel::handleSetWidgetFocus(const SelectControlType& select)
{
    if (!grid->isVisible()) return editor.say(tr("The controls are not shown."));
    ValueEdit* const edit = grid->findEdit(select);
    if (edit == nullptr) return editor.say(tr("There is no edit."));
    edit->setFocus();
    edit->selectAll();
}
}  // namespace Gui::Controls
