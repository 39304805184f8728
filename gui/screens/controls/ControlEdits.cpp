#include "gui/screens/controls/ControlEdits.h"

#include <QObject>
#include <algorithm>
#include <utility>

#include "backend/model/RecordFields.h"
#include "gui/forms/RecordEditor.h"
#include "gui/framework/EditPoster.h"

namespace Gui::Controls
{
using namespace Backend;

std::vector<RecordId> ControlEdits::getSelected() const
{
    std::vector<Id> ids = editor.getSelection().getSelected();
    std::erase_if(ids, [this](Id id) { return records.find(id) == nullptr; });
    return ids;
}

void ControlEdits::selectEmpty(const Cell& cell)
{
    records.setEmptyCell(cell);
    editor.getSelection().setRecords(records.getIds());
    editor.getSelection().select({ControlRecords::idOf(cell)});
}

QString ControlEdits::findObstacle(const Cell& by) const
{
    const std::vector<Id> selected = getSelected();
    for (const Id id : selected) {
        ControlRecords::Control moved = *records.find(id);
        moved.cell = {moved.cell.row + by.row, moved.cell.col + by.col};
        if (const QString obstacle = records.findObstacle(moved, selected); !obstacle.isEmpty()) return obstacle;
    }
    return {};
}

void ControlEdits::move(const Cell& by, std::uint32_t gesture)
{
    const std::vector<Id> from = getSelected();
    if (from.empty() || by == Cell{0, 0}) return;
    if (const QString obstacle = findObstacle(by); !obstacle.isEmpty()) return editor.say(obstacle);
    const auto& kind = records.getKind();
    const QString name =
        from.size() == 1 ? records.nameOf(from.front()) : QStringLiteral("%1 %2").arg(from.size()).arg(kind.many);
    Edit edit{.section = kind.section, .name = QObject::tr("%1 place").arg(name).toStdString(), .gesture = gesture};
    for (const Id id : from) edit.records.push_back({.kind = RecordEdit::Kind::remove, .id = id});
    records.move(from, by);
    std::vector<Id> to;
    for (const Id id : from) {
        const Cell cell = ControlRecords::cellOf(id);
        to.push_back(ControlRecords::idOf({cell.row + by.row, cell.col + by.col}));
        edit.records.push_back(
            {.kind = RecordEdit::Kind::add, .id = to.back(), .fields = RecordFields::read(records.write(to.back()))});
    }
    editor.getEdits().post(std::move(edit));
    Forms::Selection& selection = editor.getSelection();
    std::vector<Id> both = records.getIds();
    both.insert(both.end(), from.begin(), from.end());
    selection.setRecords(std::move(both));  // so that something is selected all the time
    selection.select(to);
    selection.setRecords(records.getIds());
}

void ControlEdits::resize(Id id, int size, std::uint32_t gesture)
{
    ControlRecords::Control* const control = records.find(id);
    if (control == nullptr) return;
    const int largest = records.getLargestSize(*control);
    if (size > largest) editor.say(QObject::tr("There is room for %1 cells.").arg(largest));
    editor.change({id}, QObject::tr("size in cells"), gesture,
                  [&] { control->size = std::clamp(size, 1, std::max(1, largest)); });
}

void ControlEdits::add()
{
    const auto isFree = [this](const Cell& cell) { return records.findAt(cell) == nullptr; };
    const Id last = ControlRecords::ControlMap::ROWS * ControlRecords::ControlMap::COLUMNS;
    Cell cell = records.getEmptyCell().value_or(Cell{0, 0});
    for (Id place = 0; place < last && !isFree(cell); ++place)
        cell = {place / ControlRecords::ControlMap::COLUMNS, place % ControlRecords::ControlMap::COLUMNS};
    if (!isFree(cell)) return editor.say(QObject::tr("There is no empty cell."));
    const Id id = ControlRecords::idOf(cell);
    editor.change({id}, QObject::tr("added"), editor.getEdits().beginGesture(), [&] { records.add(cell); });
    editor.getSelection().setRecords(records.getIds());
    editor.getSelection().select({id});
    editor.setOpen(true);
}

void ControlEdits::setEvent(const MidiEngine::MidiMessage& event)
{
    const std::vector<Id> selected = getSelected();
    editor.change(selected, QObject::tr("event"), editor.getEdits().beginGesture(), [&] {
        for (const Id id : selected) records.setEvent(id, event);
    });
}
}  // namespace Gui::Controls
