#include "gui/screens/controls/ControlRecords.h"

#include <QObject>
#include <QRect>
#include <algorithm>
#include <sstream>
#include <utility>

#include "backend/model/PresetSections.h"
#include "backend/model/RecordFields.h"
#include "backend/xml/XmlDocument.h"

namespace Gui::Controls
{
using namespace Backend;
using Type = Backend::Controls::ControlType::Kind;

namespace
{
constexpr std::int32_t ROWS = ControlRecords::ControlMap::ROWS;
constexpr std::int32_t COLUMNS = ControlRecords::ControlMap::COLUMNS;

QRect placeOf(const ControlRecords::Control& control)
{
    return {QPoint(control.cell.col, control.cell.row), ControlRecords::spanOf(control)};
}

QString textOf(Type type)
{
    switch (type) {
        case Type::edit:
            return QObject::tr("edit");
        case Type::vfader:
            return QObject::tr("vertical fader");
        case Type::hfader:
            return QObject::tr("horizontal fader");
        case Type::knob:
            return QObject::tr("knob");
        case Type::label:
            return QObject::tr("label");
        case Type::none:
            break;
    }
    return QObject::tr("nothing");
}

QString textOf(const Backend::Controls::ControlFunction& function)
{
    QString text = QString::fromStdString(function.midiEvent.getEventNameWithCcAndNoteDetail());
    if (function.channel >= 0) text += QObject::tr(", channel %1").arg(function.channel + 1);
    return text;
}
}  // namespace

// --- the copies

bool ControlRecords::isInGrid(const Cell& cell)
{
    return cell.row >= 0 && cell.row < ROWS && cell.col >= 0 && cell.col < COLUMNS;
}

QSize ControlRecords::spanOf(const Control& control)
{
    const int size = std::clamp(control.size, 1, std::max(ROWS, COLUMNS));
    if (control.type.kind == Type::vfader) return {1, size};
    return {control.type.kind == Type::hfader ? size : 1, 1};
}

const ControlRecords::Control* ControlRecords::findAt(const Cell& cell) const
{
    const Control* found = nullptr;
    controls.forEach([&](const Control& control) {
        if (placeOf(control).contains(cell.col, cell.row)) found = &control;  // it is drawn over those before
    });
    return found;
}

QSize ControlRecords::getUsed() const
{
    QRect used(0, 0, 0, 0);
    controls.forEach([&](const Control& control) {
        if (isInGrid(control.cell)) used |= placeOf(control);
    });
    return used.size().boundedTo({COLUMNS, ROWS});
}

const ControlRecords::Control& ControlRecords::read(Id id) const
{
    static const Control NONE;
    const Control* const control = find(id);
    return control == nullptr ? NONE : *control;
}

ControlRecords::Control& ControlRecords::at(Id id)
{
    if (find(id) == nullptr) controls.put(Control{.cell = cellOf(id)});
    return *find(id);
}

// --- places

QString ControlRecords::findObstacle(const Control& control, const std::vector<Id>& except) const
{
    const QRect place = placeOf(control);
    if (!QRect(0, 0, COLUMNS, ROWS).contains(place)) return QObject::tr("The grid has 16 rows and 16 columns.");
    bool isTaken = false;
    controls.forEach([&](const Control& other) {
        const bool stays = std::ranges::find(except, idOf(other.cell)) == except.end();
        isTaken = isTaken || (stays && placeOf(other).intersects(place));
    });
    return isTaken ? QObject::tr("Another control is there.") : QString();
}

int ControlRecords::getLargestSize(const Control& control) const
{
    Control larger = control;
    larger.size = 1;
    do ++larger.size;
    while (larger.size <= std::max(ROWS, COLUMNS) && findObstacle(larger, {idOf(control.cell)}).isEmpty());
    return larger.size - 1;
}

void ControlRecords::move(const std::vector<Id>& from, const Cell& by)
{
    std::vector<Control> moved;
    for (const Id id : from)
        if (const Control* const control = find(id)) moved.push_back(*control);
    for (const Control& control : moved) controls.remove(control.cell);
    for (Control& control : moved) {
        control.cell = {control.cell.row + by.row, control.cell.col + by.col};
        control.selected = false;  // until the window has selected it there
        controls.put(std::move(control));
    }
}

void ControlRecords::add(const Cell& cell) { at(idOf(cell)).type.kind = Type::knob; }

// --- the records

const ControlRecords::Kind& ControlRecords::getKind() const
{
    static const Kind KIND{PresetSections::CONTROLS.rootElement, "Control", Forms::Selection::Ids::fixed,
                           QObject::tr("control"), QObject::tr("controls")};
    return KIND;
}

std::vector<RecordId> ControlRecords::getIds() const
{
    std::vector<Id> ids;
    controls.forEach([&](const Control& control) { ids.push_back(idOf(control.cell)); });
    if (emptyCell && find(idOf(*emptyCell)) == nullptr) ids.push_back(idOf(*emptyCell));
    std::ranges::sort(ids);
    return ids;
}

std::string ControlRecords::write(Id id) const
{
    std::ostringstream out;
    if (const Control* const control = find(id)) control->writeXml(out, 0);
    return out.str();
}

QString ControlRecords::describe(Id id) const
{
    const Cell cell = cellOf(id);
    const QString place = QObject::tr("row %1, column %2").arg(cell.row + 1).arg(cell.col + 1);
    const Control* const control = find(id);
    if (control == nullptr) return QObject::tr("Empty: %1").arg(place);
    QStringList parts;
    if (!control->name.empty()) parts << QString::fromStdString(control->name);
    parts << textOf(control->type.kind) << place;
    if (control->type.sends()) {
        for (const auto& function : control->functions) parts << textOf(function);
        parts << QObject::tr("%1 to %2").arg(control->min).arg(control->max);
    }
    return parts.join(QStringLiteral(", "));
}

QString ControlRecords::nameOf(Id id) const
{
    const Control* const control = find(id);
    const Cell cell = cellOf(id);
    const QString name = control == nullptr || control->name.empty()
                             ? QStringLiteral("%1,%2").arg(cell.row + 1).arg(cell.col + 1)
                             : QString::fromStdString(control->name);
    return getKind().one + ' ' + name;
}

std::vector<RecordEdit> ControlRecords::makeAdditions(std::vector<Fields> added,
                                                      const Forms::Selection& selection) const
{
    std::vector<Control> placed;
    Cell corner{ROWS, COLUMNS};
    for (const Fields& fields : added) {
        if (fields.empty()) continue;  // an empty cell
        const std::string text = RecordFields::write(getKind().element, fields);
        placed.push_back(Control::fromXml(XmlDocument(text, XmlDocument::Source::text).getRoot()));
        corner.row = std::min(corner.row, placed.back().cell.row);
        corner.col = std::min(corner.col, placed.back().cell.col);
    }
    std::erase_if(added, [](const Fields& fields) { return fields.empty(); });
    const std::vector<Id> selected = selection.getSelected();
    const Cell start = cellOf(selected.empty() ? selection.getCurrent().value_or(0) : selected.front());
    for (int step = 0; step < ROWS * COLUMNS && !placed.empty(); ++step) {
        const int place = (start.row * COLUMNS + start.col + step) % (ROWS * COLUMNS);
        const Cell by{place / COLUMNS - corner.row, place % COLUMNS - corner.col};
        std::vector<RecordEdit> edits;
        for (std::size_t i = 0; i < placed.size(); ++i) {
            Control control = placed[i];
            control.cell = {control.cell.row + by.row, control.cell.col + by.col};
            if (!findObstacle(control, {}).isEmpty()) break;
            Fields fields = added[i];
            RecordFields::valueOf(fields, "cell") = control.cell.toXmlString();
            edits.push_back({.kind = RecordEdit::Kind::add, .id = idOf(control.cell), .fields = std::move(fields)});
        }
        if (edits.size() == placed.size()) return edits;
    }
    return {};
}

std::vector<RecordEdit> ControlRecords::makeRemovals(const std::vector<Id>& removed) const
{
    std::vector<Id> present = removed;
    std::erase_if(present, [this](Id id) { return find(id) == nullptr; });
    return SectionRecords::makeRemovals(present);
}
}  // namespace Gui::Controls
