#include "gui/screens/layers/SequenceGrid.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QStringList>
#include <QWheelEvent>
#include <algorithm>
#include <utility>

#include "api/GuiContext.h"
#include "gui/framework/GdiManager.h"
#include "gui/framework/Look.h"
#include "gui/framework/PopupMenu.h"
#include "gui/framework/Properties.h"

namespace Gui::Layers
{
using Backend::SequenceManagement::SequenceNode;
using Backend::SequenceManagement::SequenceOffset;
using Role = GdiManager::Role;

namespace
{
// Logical pixels
constexpr int GRID_WIDTH = 936;
constexpr int GUTTER = 30;
constexpr int NUMBERS = 13;
constexpr int CELL = 7;
constexpr int LANE = 33;
constexpr int LANE_GAP = 3;
constexpr int SCROLL_BAR = 16;
constexpr int NARROWEST = 14;
constexpr int WIDEST = 36;

constexpr int HALF_TONES = 12;
constexpr int SHOWN = 2 * HALF_TONES + 1;  // half-tones
constexpr int LOWEST = -127;
constexpr int HIGHEST = 127;
constexpr int WIDE_STEP = 10;  // of a velocity

const SequenceNode REST{{.rest = true}};

bool isNote(const SequenceNode& node, int note)
{
    return std::ranges::any_of(node, [note](const auto& each) { return !each.rest && each.note == note; });
}

bool isRest(const SequenceNode& node) { return std::ranges::all_of(node, &SequenceOffset::rest); }

int velocityOf(const SequenceNode& node)
{
    const auto note = std::ranges::find(node, false, &SequenceOffset::rest);
    return note == node.end() ? 0 : note->velocity;
}

/// Notes stand in rising order behind each other; a new one is as loud as the others.
void setNote(SequenceNode& node, int note, bool on)
{
    if (isNote(node, note) == on) return;
    const int velocity = velocityOf(node);
    std::erase_if(node, [&](const SequenceOffset& each) { return each.rest || each.note == note; });
    if (on)
        node.insert(std::ranges::find_if(node, [note](const auto& each) { return each.note > note; }),
                    {.note = note, .velocity = velocity});
    if (node.empty()) node = REST;
}

void setVelocity(SequenceNode& node, int velocity)
{
    for (SequenceOffset& note : node)
        if (!note.rest) note.velocity = std::clamp(velocity, -HIGHEST, HIGHEST);
}

QString withSign(int number) { return (number > 0 ? QStringLiteral("+") : QString()) + QString::number(number); }
}  // namespace

SequenceGrid::SequenceGrid(GuiContext& owner, QWidget* parent) : QWidget(parent), context(owner)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::TabFocus);
    setAccessibleName(tr("Steps of the sequence"));
    Property::setHelp(
        *this,
        tr("Steps of the sequence: a click or a drag sets half-tones above or below the played note, beneath them "
           "the velocity that is added. Arrows move, Space sets, Shift+Up and Shift+Down change the velocity, "
           "Minus makes a rest, Insert adds a step, Delete removes it. The wheel shows other octaves."));
    rescale();
}

const GdiManager& SequenceGrid::getGdi() const { return context.getGdiManager(); }

int SequenceGrid::getLogicalHeight() { return NUMBERS + CELL * SHOWN + LANE_GAP + LANE + SCROLL_BAR; }

void SequenceGrid::rescale()
{
    const int columns = getRowCount() + 1;
    const int logical = std::max(GRID_WIDTH, GUTTER + columns * NARROWEST);
    setFixedSize(getGdi().px(logical), getGdi().px(getLogicalHeight() - SCROLL_BAR));
    update();
}

void SequenceGrid::setNodes(const Nodes& shown)
{
    if (shown == nodes) return;
    nodes = shown;
    current = std::min(current, getRowCount());
    rescale();
    currentRowChanged(*this, *this);
}

void SequenceGrid::setPlayingStep(int step)
{
    if (std::exchange(playing, step) != step) update();
}

// --- what is where

int SequenceGrid::columnWidth() const
{
    return std::clamp((GRID_WIDTH - GUTTER) / (getRowCount() + 1), NARROWEST, WIDEST);
}

QRect SequenceGrid::cellOf(int step, int note) const
{
    return getGdi().px(
        QRect(GUTTER + step * columnWidth(), NUMBERS + (lowest + SHOWN - 1 - note) * CELL, columnWidth(), CELL));
}

QRect SequenceGrid::laneOf(int step) const
{
    return getGdi().px(QRect(GUTTER + step * columnWidth(), NUMBERS + SHOWN * CELL + LANE_GAP, columnWidth(), LANE));
}

QRect SequenceGrid::getRowPlace(int row) const { return {QPoint(cellOf(row, 0).left(), 0), laneOf(row).bottomRight()}; }

int SequenceGrid::stepAt(int x) const
{
    const double logical = x / getGdi().getScale() - GUTTER;
    return std::clamp(static_cast<int>(logical) / columnWidth(), 0, getRowCount());
}

int SequenceGrid::noteAt(int y) const
{
    const double logical = y / getGdi().getScale() - NUMBERS;
    return lowest + SHOWN - 1 - std::clamp(static_cast<int>(logical) / CELL, 0, SHOWN - 1);
}

int SequenceGrid::velocityAt(int y) const
{
    const QRect lane = laneOf(0);
    const int reach = lane.height() / 2;
    return std::clamp((lane.center().y() - y) * HIGHEST / std::max(1, reach), -HIGHEST, HIGHEST);
}

SequenceGrid::Part SequenceGrid::partAt(int y) const
{
    if (y < getGdi().px(NUMBERS)) return Part::number;
    return y < laneOf(0).top() ? Part::notes : Part::velocity;
}

QString SequenceGrid::getRowName(int row) const
{
    if (row >= getRowCount()) return tr("Add step %1; at %2").arg(row + 1).arg(withSign(currentNote));
    QStringList notes;
    const auto& node = nodes[static_cast<std::size_t>(row)];
    for (const SequenceOffset& each : node)
        if (!each.rest) notes << withSign(each.note);
    QString name = tr("Step %1: %2").arg(row + 1).arg(notes.isEmpty() ? tr("rest") : notes.join(QStringLiteral(", ")));
    if (const int velocity = velocityOf(node); velocity != 0) name += tr("; velocity %1").arg(withSign(velocity));
    return row == current ? tr("%1; at %2").arg(name, withSign(currentNote)) : name;
}

// --- changes

void SequenceGrid::change(Nodes changed, Gesture gesture)
{
    if (changed == nodes) return;
    setNodes(changed);
    if (onChange) onChange(nodes, gesture);
}

void SequenceGrid::insertStep()
{
    Nodes changed = nodes;
    changed.insert(changed.begin() + current, REST);
    change(std::move(changed), Gesture::begins);
}

void SequenceGrid::removeStep()
{
    if (current >= getRowCount()) return;
    Nodes changed = nodes;
    changed.erase(changed.begin() + current);
    change(std::move(changed), Gesture::begins);
}

void SequenceGrid::makeRest()
{
    Nodes changed = nodes;
    if (current >= getRowCount()) changed.emplace_back();
    changed[static_cast<std::size_t>(current)] = REST;
    change(std::move(changed), Gesture::begins);
}

void SequenceGrid::changeVelocity(int by, Gesture gesture)
{
    if (current >= getRowCount()) return;
    Nodes changed = nodes;
    SequenceNode& node = changed[static_cast<std::size_t>(current)];
    setVelocity(node, velocityOf(node) + by);
    change(std::move(changed), gesture);
}

void SequenceGrid::dragTo(const QPoint& point)
{
    const bool canAdd = drag->part == Part::notes && !drag->erases;
    const int step = std::min(stepAt(point.x()), getRowCount() - (canAdd ? 0 : 1));
    if (step < 0) return;
    drag->passed[step] = drag->part == Part::velocity ? velocityAt(point.y()) : noteAt(point.y());
    Nodes changed = drag->before;
    for (const auto& [passed, value] : drag->passed) {
        if (passed == static_cast<int>(changed.size())) changed.push_back(REST);
        SequenceNode& node = changed[static_cast<std::size_t>(passed)];
        if (drag->part == Part::velocity)
            setVelocity(node, value);
        else
            setNote(node, value, !drag->erases);
    }
    setCurrent(step, drag->part == Part::velocity ? currentNote : noteAt(point.y()));
    if (changed != nodes) change(std::move(changed), std::exchange(drag->next, Gesture::continues));
}

// --- the current cell

void SequenceGrid::setCurrent(int step, int note)
{
    current = std::clamp(step, 0, getRowCount());
    currentNote = std::clamp(note, LOWEST, HIGHEST);
    showNote(currentNote);
    update();
    if (onReveal) onReveal(getRowPlace(current));
    currentRowChanged(*this, *this);
}

void SequenceGrid::showNote(int note)
{
    while (note < lowest) lowest -= HALF_TONES;
    while (note >= lowest + SHOWN) lowest += HALF_TONES;
}

void SequenceGrid::selectRow(int row) { setCurrent(row, currentNote); }

bool SequenceGrid::useKey(const QKeyEvent& event)
{
    const auto held = event.modifiers() & ~Qt::KeypadModifier;
    const bool isUp = event.key() == Qt::Key_Up;
    if ((isUp || event.key() == Qt::Key_Down) && held.testFlag(Qt::ShiftModifier)) {
        const int by = held.testFlag(Qt::ControlModifier) ? WIDE_STEP : 1;
        changeVelocity(isUp ? by : -by, event.isAutoRepeat() ? Gesture::continues : Gesture::begins);
        return true;
    }
    if (held != Qt::NoModifier) return false;
    switch (event.key()) {
        case Qt::Key_Left:
            setCurrent(current - 1, currentNote);
            return true;
        case Qt::Key_Right:
            setCurrent(current + 1, currentNote);
            return true;
        case Qt::Key_Home:
            setCurrent(0, currentNote);
            return true;
        case Qt::Key_End:
            setCurrent(getRowCount(), currentNote);
            return true;
        case Qt::Key_Up:
        case Qt::Key_Down:
            setCurrent(current, currentNote + (isUp ? 1 : -1));
            return true;
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
            setCurrent(current, currentNote + (event.key() == Qt::Key_PageUp ? HALF_TONES : -HALF_TONES));
            return true;
        case Qt::Key_Space: {
            Nodes changed = nodes;
            if (current == getRowCount()) changed.push_back(REST);
            SequenceNode& node = changed[static_cast<std::size_t>(current)];
            setNote(node, currentNote, !isNote(node, currentNote));
            change(std::move(changed), Gesture::begins);
            return true;
        }
        case Qt::Key_Minus:
            makeRest();
            return true;
        case Qt::Key_Insert:
            insertStep();
            return true;
        case Qt::Key_Delete:
            removeStep();
            return true;
        default:
            return false;
    }
}

/// Other keys are left to the window and to playing.
void SequenceGrid::keyPressEvent(QKeyEvent* event) { event->setAccepted(useKey(*event)); }

// --- the mouse

void SequenceGrid::mousePressEvent(QMouseEvent* event)
{
    const QPoint point = event->position().toPoint();
    if (event->button() != Qt::LeftButton || drag) return;
    const Part part = partAt(point.y());
    const int step = stepAt(point.x());
    if (part == Part::number) return selectRow(step);
    const bool erases =
        part == Part::notes && step < getRowCount() && isNote(nodes[static_cast<std::size_t>(step)], noteAt(point.y()));
    drag = Drag{.part = part, .erases = erases, .before = nodes, .passed = {}};
    dragTo(point);
}

void SequenceGrid::mouseMoveEvent(QMouseEvent* event)
{
    if (drag) dragTo(event->position().toPoint());
}

void SequenceGrid::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) drag.reset();
}

void SequenceGrid::contextMenuEvent(QContextMenuEvent* event)
{
    const bool isKey = event->reason() == QContextMenuEvent::Keyboard;
    if (!isKey) selectRow(stepAt(event->pos().x()));
    showMenu(isKey ? mapToGlobal(cellOf(current, currentNote).center()) : event->globalPos());
}

void SequenceGrid::showMenu(const QPoint& globalPosition)
{
    const bool isStep = current < getRowCount();
    const std::pair<QString, void (SequenceGrid::*)()> COMMANDS[] = {
        {isStep ? tr("Insert step before %1\tInsert").arg(current + 1) : tr("Add step\tInsert"),
         &SequenceGrid::insertStep},
        {tr("Rest\tMinus"), &SequenceGrid::makeRest},
        {tr("Remove step\tDel"), &SequenceGrid::removeStep}};
    auto* menu = new PopupMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const auto& [text, execute] : COMMANDS)
        connect(&menu->addItem({.text = text, .enabled = isStep || execute != &SequenceGrid::removeStep}),
                &QAction::triggered, this, execute);
    menu->show(globalPosition);
}

void SequenceGrid::wheelEvent(QWheelEvent* event)
{
    lowest = std::clamp(lowest + wheel.takeNotches(*event) * HALF_TONES, -10 * HALF_TONES, 8 * HALF_TONES);
    update();
    event->accept();
}

void SequenceGrid::focusInEvent(QFocusEvent* event)
{
    QWidget::focusInEvent(event);
    setCurrent(current, currentNote);
}

void SequenceGrid::focusOutEvent(QFocusEvent* event)
{
    QWidget::focusOutEvent(event);
    update();
}

// --- drawing

void SequenceGrid::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const GdiManager& gdi = getGdi();
    painter.fillRect(rect(), gdi.getColour(Role::background));
    painter.setFont(gdi.getFont(GdiManager::FontRole::font9));
    painter.setPen(gdi.getColour(Role::label));
    for (int note = lowest; note < lowest + SHOWN; ++note) {
        if (note % HALF_TONES != 0) continue;
        const int middle = cellOf(0, note).center().y();
        const int half = gdi.px(CELL);
        painter.drawText(QRect(0, middle - half, gdi.px(GUTTER - 4), 2 * half), Qt::AlignRight | Qt::AlignVCenter,
                         withSign(note));
    }
    painter.drawText(QRect(0, laneOf(0).top(), gdi.px(GUTTER - 4), laneOf(0).height()),
                     Qt::AlignRight | Qt::AlignVCenter, tr("Vel"));
    for (int step = 0; step <= getRowCount(); ++step) paintStep(painter, step);
    if (hasFocus()) Look::drawFocus(painter, gdi, cellOf(current, currentNote).adjusted(-2, -2, 2, 2));
}

void SequenceGrid::paintStep(QPainter& painter, int step) const
{
    const GdiManager& gdi = getGdi();
    const bool isStep = step < getRowCount();
    const bool isLit = isStep && step == playing;
    const QColor& ink = gdi.getColour(isLit ? Role::selectedButton : Role::unselectedButton);
    const QRect place = getRowPlace(step);
    const QRect number(place.left(), 0, place.width() - 1, gdi.px(NUMBERS));
    if (isLit) painter.fillRect(number, ink);
    painter.setPen(isLit ? Look::inkOn(ink) : gdi.getColour(step == current ? Role::text : Role::label));
    painter.drawText(number, Qt::AlignCenter, isStep ? QString::number(step + 1) : QStringLiteral("+"));

    const SequenceNode node = isStep ? nodes[static_cast<std::size_t>(step)] : REST;
    for (int note = lowest; note < lowest + SHOWN; ++note) {
        const QRect cell = cellOf(step, note).adjusted(0, 0, -1, -1);
        const bool isOn = isNote(node, note);
        if (isOn || isStep)
            painter.fillRect(cell,
                             isOn ? ink : gdi.getColour(note % HALF_TONES == 0 ? Role::unusedButton : Role::greenPen));
        else if (note % HALF_TONES == 0)
            painter.fillRect(cell, gdi.getColour(Role::greenPen));
    }
    if (!isStep) return;
    const auto isOutside = [&](bool above) {
        return std::ranges::any_of(node, [&](const SequenceOffset& each) {
            return !each.rest && (above ? each.note >= lowest + SHOWN : each.note < lowest);
        });
    };
    if (isOutside(true)) Look::drawTriangle(painter, cellOf(step, lowest + SHOWN - 1), Look::Direction::up, ink);
    if (isOutside(false)) Look::drawTriangle(painter, cellOf(step, lowest), Look::Direction::down, ink);
    const QRect lane = laneOf(step).adjusted(0, 0, -1, 0);
    painter.fillRect(lane, gdi.getColour(Role::greenPen));
    if (isRest(node)) return painter.drawText(lane, Qt::AlignCenter, QStringLiteral("-"));
    const int middle = lane.center().y();
    const int reach = velocityOf(node) * (lane.height() / 2) / HIGHEST;
    painter.fillRect(QRect(lane.left(), std::min(middle, middle - reach), lane.width(), std::abs(reach) + gdi.px(1)),
                     ink);
}
}  // namespace Gui::Layers
