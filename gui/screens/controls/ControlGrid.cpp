#include "gui/screens/controls/ControlGrid.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <utility>

#include "api/OrvGuiIF.h"
#include "gui/forms/RecordEditor.h"
#include "gui/framework/EditPoster.h"
#include "gui/framework/Look.h"
#include "gui/framework/Properties.h"
#include "gui/screens/controls/ControlCell.h"
#include "gui/screens/controls/ControlEdits.h"
#include "gui/screens/controls/ValueEdit.h"

namespace Gui::Controls
{
using Control = ControlRecords::Control;
using Type = Backend::Controls::ControlType::Kind;
using Role = GdiManager::Role;

namespace
{
constexpr int GAP = 2;   // logical pixels between two cells
constexpr int END = 10;  // of a fader, where its size is dragged

Cell sum(const Cell& one, const Cell& other) { return {one.row + other.row, one.col + other.col}; }
}  // namespace

ControlGrid::ControlGrid(OrvGuiIF& owner, ControlRecords& shownRecords, Forms::RecordEditor& recordEditor,
                         ControlEdits& changes, QWidget* parent)
    : QWidget(parent), gui(owner), records(shownRecords), editor(recordEditor), edits(changes)
{
    setAccessibleName(tr("Controls"));
    setFocusPolicy(Qt::TabFocus);
    setMouseTracking(true);
    Property::setHelp(*this,
                      tr("Controls: faders, knobs and edits that send MIDI and follow it. A click selects, with "
                         "Shift a range, with Ctrl one more; those that are selected move together. Right click "
                         "or Enter: settings. While they are open, drag a control to its place, and the end of a "
                         "fader to its size; Alt with an arrow key moves it, too."));
}

bool ControlGrid::isEditing() const { return editor.isOpen(); }

// --- the cells

/// While it is hidden, nothing is made.
void ControlGrid::follow()
{
    if (!isVisible()) return;
    std::erase_if(cells, [this](const auto& known) {
        const Control* const control = records.find(known.first);
        if (control != nullptr && known.second->fits(*control)) return false;
        known.second->hide();
        known.second->deleteLater();  // it may have called
        return true;
    });
    bool isNew = false;
    records.getControls().forEach([&](const Control& control) {
        const Id id = ControlRecords::idOf(control.cell);
        if (!ControlRecords::isInGrid(control.cell)) return;
        isNew = isNew || !cells.contains(id);
        ControlCell& cell = cells.contains(id) ? *cells.at(id) : makeCell(control);
        if (!cell.shows(control)) cell.showControl(control, records.describe(id));
        cell.showValue(control.value);
        cell.setGeometry(placeOf(control.cell, ControlRecords::spanOf(control)));
    });
    if (isNew) orderTabs();
    markCells();
    update();
    if (hasFocus()) accessibleValueChanged(*this, getAccessibleValue());
}

/// In reading order.
void ControlGrid::orderTabs()
{
    QWidget* before = this;
    for (const auto& [id, cell] : cells)
        for (QWidget* const part : cell->findChildren<QWidget*>()) {
            setTabOrder(before, part);
            before = part;
        }
}

ControlCell& ControlGrid::makeCell(const Control& control)
{
    const Id id = ControlRecords::idOf(control.cell);
    auto* const cell = new ControlCell(gui, control, this);
    cell->onValue = [this, id](int value) { onValue(id, value); };
    cell->onRelease = [this, id] { onRelease(id); };
    cell->onPress = [this, id](Qt::KeyboardModifiers held) { return press(id, held); };
    cell->onCaption = [this, id](Qt::KeyboardModifiers held) { editor.getSelection().click(id, held); };
    cell->onLeave = [this] {
        if (QWidget* const edit = window()->focusWidget()) edit->clearFocus();
        gui.setFocus();
    };
    cells.emplace(id, cell);
    cell->show();
    return *cell;
}

void ControlGrid::markCells()
{
    const Forms::Selection& selection = editor.getSelection();
    for (const auto& [id, cell] : cells)
        cell->setMarks({.selected = selection.isSelected(id),
                        .current = hasFocus() && selection.isCurrent(id),
                        .edited = isEditing()});
}

void ControlGrid::showValue(Id id)
{
    const auto cell = cells.find(id);
    const Control* const control = records.find(id);
    if (isVisible() && cell != cells.end() && control != nullptr) cell->second->showValue(control->value);
}

/// A press of a selected one moves all that are selected.
bool ControlGrid::press(Id id, Qt::KeyboardModifiers held)
{
    Forms::Selection& selection = editor.getSelection();
    const bool selectsOnly = (held & (Qt::ShiftModifier | Qt::ControlModifier)) != 0;
    if (selectsOnly || !selection.isSelected(id)) selection.click(id, held);
    return selectsOnly;
}

ValueEdit* ControlGrid::findEdit(const SelectControlType& select) const
{
    using Kind = SelectControlType::Kind;
    const auto editAt = [this](const Cell& cell) {
        const auto found = cells.find(ControlRecords::idOf(cell));
        return found == cells.end() ? nullptr : found->second->getEdit();
    };
    if (select.kind == Kind::specific && select.cell != Cell{}) return editAt(select.cell);
    std::optional<Cell> from;
    for (const auto& [id, cell] : cells) {
        const bool hasCursor = cell->getEdit() != nullptr && cell->getEdit()->hasFocus();
        if (hasCursor || (!from && editor.getSelection().isSelected(id))) from = ControlRecords::cellOf(id);
    }
    if (select.kind != Kind::up && select.kind != Kind::down && select.kind != Kind::left && select.kind != Kind::right)
        return from ? editAt(*from) : nullptr;
    auto next = ControlRecords::ControlMap::step(from.value_or(ControlRecords::ControlMap::getOutside(select.kind)),
                                                 select.kind);
    while (next && editAt(*next) == nullptr) next = ControlRecords::ControlMap::step(*next, select.kind);
    return next ? editAt(*next) : nullptr;
}

// --- the picture

/// While controls are arranged, a row and a column more.
QSize ControlGrid::getLogicalSize() const
{
    constexpr QSize ONE(1, 1);
    constexpr QSize MOST(ControlRecords::ControlMap::COLUMNS, ControlRecords::ControlMap::ROWS);
    QSize used = records.getUsed().expandedTo(ONE);
    if (isEditing()) used = (used + ONE).boundedTo(MOST);
    return {used.width() * CELL.width(), used.height() * CELL.height()};
}

QRect ControlGrid::placeOf(const Cell& cell, const QSize& span) const
{
    return gui.getGdiManager().px(QRect(cell.col * CELL.width(), cell.row * CELL.height(),
                                        span.width() * CELL.width() - GAP, span.height() * CELL.height() - GAP));
}

Cell ControlGrid::cellAt(const QPointF& point) const
{
    const double scale = gui.getGdiManager().getScale();
    return {static_cast<std::int32_t>(std::floor(point.y() / scale / CELL.height())),
            static_cast<std::int32_t>(std::floor(point.x() / scale / CELL.width()))};
}

void ControlGrid::paintEvent(QPaintEvent*)
{
    const GdiManager& gdi = gui.getGdiManager();
    QPainter painter(this);
    if (records.getControls().size() == 0 && !isEditing()) {
        painter.setPen(gdi.getColour(Role::labelDisabled));
        painter.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter, tr("No controls. Edit adds them."));
        if (hasFocus()) Look::drawFocus(painter, gdi, rect());
        return;
    }
    if (!isEditing()) return;
    const QSize all(getLogicalSize().width() / CELL.width(), getLogicalSize().height() / CELL.height());
    painter.setPen(QPen(gdi.getColour(Role::controlBorderDisabled), 1, Qt::DotLine));
    for (int row = 0; row < all.height(); ++row)
        for (int col = 0; col < all.width(); ++col)
            painter.drawRect(placeOf({row, col}, {1, 1}).adjusted(0, 0, -1, -1));
    const Forms::Selection& selection = editor.getSelection();
    const auto empty = records.getEmptyCell();
    if (empty && selection.isSelected(ControlRecords::idOf(*empty))) {
        painter.setPen(QPen(gdi.getColour(Role::frame), gdi.px(2)));
        painter.drawRect(placeOf(*empty, {1, 1}).adjusted(1, 1, -2, -2));
        if (hasFocus()) Look::drawFocus(painter, gdi, placeOf(*empty, {1, 1}));
    }
    if (!drag || drag->what == DragOf::size || dragged == Cell{0, 0}) return;
    const bool hasRoom = edits.findObstacle(dragged).isEmpty();
    painter.setPen(QPen(gdi.getColour(hasRoom ? Role::selectedButton : Role::frame), gdi.px(2)));
    for (const Id id : edits.getSelected()) {
        const Control& control = *records.find(id);
        painter.drawRect(placeOf(sum(control.cell, dragged), ControlRecords::spanOf(control)).adjusted(1, 1, -2, -2));
    }
}

QString ControlGrid::getAccessibleValue() const
{
    const auto current = editor.getSelection().getCurrent();
    if (!current) return {};
    const QString name = records.describe(*current);
    return editor.getSelection().isSelected(*current) ? tr("%1, selected").arg(name) : name;
}

void ControlGrid::showEvent(QShowEvent* event)
{
    follow();
    QWidget::showEvent(event);
}

// --- the mouse, while controls are arranged

bool ControlGrid::isAtEnd(const Control& control, const QPointF& point) const
{
    const QRect place = placeOf(control.cell, ControlRecords::spanOf(control));
    const int end = gui.getGdiManager().px(END);
    if (control.type.kind == Type::vfader) return point.y() > place.bottom() - end;
    return control.type.kind == Type::hfader && point.x() > place.right() - end;
}

std::optional<ControlGrid::DragOf> ControlGrid::dragAt(const QPointF& point) const
{
    const Control* const control = isEditing() ? records.findAt(cellAt(point)) : nullptr;
    if (control == nullptr) return std::nullopt;
    return isAtEnd(*control, point) ? DragOf::size : DragOf::place;
}

void ControlGrid::mousePressEvent(QMouseEvent* event)
{
    const Cell cell = cellAt(event->position());
    if (!isEditing() || drag || event->button() != Qt::LeftButton || !ControlRecords::isInGrid(cell))
        return QWidget::mousePressEvent(event);
    const Control* const control = records.findAt(cell);
    if (control == nullptr) return edits.selectEmpty(cell);
    const Id id = ControlRecords::idOf(control->cell);
    const bool staysSelected = event->modifiers() == Qt::NoModifier && editor.getSelection().isSelected(id);
    drag = Drag{*dragAt(event->position()), id, cell, editor.getEdits().beginGesture(), staysSelected};
    dragged = {0, 0};
    if (!staysSelected) editor.getSelection().click(id, event->modifiers());
}

void ControlGrid::mouseMoveEvent(QMouseEvent* event)
{
    if (drag && !event->buttons().testFlag(Qt::LeftButton)) drag.reset();
    if (!drag) return showPointer(event->position());
    const Cell cell = cellAt(event->position());
    const Cell way{cell.row - drag->from.row, cell.col - drag->from.col};
    if (std::exchange(dragged, way) == way) return;
    const Control* const control = records.find(drag->id);
    if (drag->what == DragOf::size && control != nullptr) {
        const bool isUpright = control->type.kind == Type::vfader;
        edits.resize(drag->id, 1 + (isUpright ? cell.row - control->cell.row : cell.col - control->cell.col),
                     drag->gesture);
    }
    update();
}

void ControlGrid::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || !drag) return;
    const Drag ended = *std::exchange(drag, std::nullopt);
    if (ended.what == DragOf::place && dragged != Cell{0, 0})
        edits.move(dragged, ended.gesture);
    else if (ended.selectsAlone && dragged == Cell{0, 0})
        editor.getSelection().click(ended.id, {});
    update();
}

void ControlGrid::showPointer(const QPointF& point)
{
    const auto part = dragAt(point);
    const Control* const control = records.findAt(cellAt(point));
    if (part != DragOf::size) return part ? setCursor(Qt::SizeAllCursor) : unsetCursor();
    setCursor(control->type.kind == Type::vfader ? Qt::SizeVerCursor : Qt::SizeHorCursor);
}

/// Opens the settings of the control, and then the menu of the section.
void ControlGrid::contextMenuEvent(QContextMenuEvent* event)
{
    const bool isByKey = event->reason() == QContextMenuEvent::Keyboard;
    const Control* const control = isByKey ? nullptr : records.findAt(cellAt(event->pos()));
    if (control != nullptr) editor.getSelection().clickForMenu(ControlRecords::idOf(control->cell));
    isEditing() ? editor.showMenu(*this, event->globalPos()) : editor.setOpen(true);
}

// --- keys

/// Those of a fader that has the focus play on.
void ControlGrid::keyPressEvent(QKeyEvent* event)
{
    if (!hasFocus()) return event->ignore();
    Forms::Selection& selection = editor.getSelection();
    const auto current = selection.getCurrent();
    if (Forms::RecordEditor::commandOf(*event) && current && selection.getSelected().empty())
        selection.select({*current});
    event->setAccepted(useArrow(*event) || editor.useKey(*event));
}

bool ControlGrid::useArrow(const QKeyEvent& event)
{
    const Cell step = event.key() == Qt::Key_Left    ? Cell{0, -1}
                      : event.key() == Qt::Key_Right ? Cell{0, 1}
                      : event.key() == Qt::Key_Up    ? Cell{-1, 0}
                      : event.key() == Qt::Key_Down  ? Cell{1, 0}
                                                     : Cell{0, 0};
    if (step == Cell{0, 0}) return false;
    const auto held = event.modifiers() & ~Qt::KeypadModifier;
    if (held == Qt::AltModifier) {
        if (isEditing()) edits.move(step, editor.getEdits().gestureOf("place of controls"));
        return isEditing();
    }
    const auto current = editor.getSelection().getCurrent();
    if (!current) return editor.getSelection().useKey(event.key(), held);
    goFrom(ControlRecords::cellOf(*current), step, held);
    return true;
}

/// To the next control in that direction; while controls are arranged, also to the next empty cell that is shown.
void ControlGrid::goFrom(const Cell& from, const Cell& step, Qt::KeyboardModifiers held)
{
    const Control* const here = records.find(ControlRecords::idOf(from));
    const QSize shown = getLogicalSize();
    const auto isShown = [&](const Cell& cell) {
        return ControlRecords::isInGrid(cell) && cell.row * CELL.height() < shown.height() &&
               cell.col * CELL.width() < shown.width();
    };
    for (Cell cell = sum(from, step); isShown(cell); cell = sum(cell, step)) {
        const Control* const control = records.findAt(cell);
        if (control != nullptr && control == here) continue;
        if (control != nullptr) return editor.getSelection().moveTo(ControlRecords::idOf(control->cell), held);
        if (isEditing()) return edits.selectEmpty(cell);
    }
}

void ControlGrid::focusInEvent(QFocusEvent* event)
{
    QWidget::focusInEvent(event);
    markCells();
    update();
}

void ControlGrid::focusOutEvent(QFocusEvent* event)
{
    QWidget::focusOutEvent(event);
    markCells();
    update();
}
}  // namespace Gui::Controls
