#include "gui/screens/joystick/PartsCtl.h"

#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <utility>

#include "api/OrvGuiIF.h"
#include "backend/model/JoyAxisElementId.h"
#include "gui/forms/RecordEditor.h"
#include "gui/framework/GdiManager.h"
#include "gui/framework/Look.h"
#include "gui/framework/Properties.h"
#include "platform/KeyRepeat.h"

namespace Gui::Joystick
{
using Backend::Joystick::JOYSTICKS;
using Forms::Selection;
using Role = GdiManager::Role;
using FontRole = GdiManager::FontRole;

namespace
{
constexpr int GAP = 8;  // logical pixels between the joysticks
constexpr int CELL_GAP = 2;

/// As a held key repeats. Asked for once, because the display has to reply.
const KeyRepeat& keyRepeat()
{
    static const KeyRepeat REPEAT = getKeyRepeat();
    return REPEAT;
}
}  // namespace

PartsCtl::PartsCtl(OrvGuiIF& owner, Forms::RecordEditor& recordEditor, Parts shownParts, QWidget* parent)
    : QWidget(parent), gui(owner), editor(recordEditor), parts(std::move(shownParts))
{
    setFocusPolicy(Qt::TabFocus);
    setMouseTracking(true);
    Property::setHelp(*this, parts.play ? tr("What each button does: a click plays it, a click with the right button "
                                             "edits it. The arrow keys go from button to button, Enter edits, Delete "
                                             "clears.")
                                        : tr("What each axis sends; a click edits it. The arrow keys go from axis to "
                                             "axis, Enter edits, Delete clears."));
    editor.observe(*this, [this] {
        helpedRow = -1;
        update();
        if (hasFocus()) currentRowChanged(*this, *this);
    });
    connect(&repeat, &QTimer::timeout, this, [this] {
        repeat.setInterval(static_cast<int>(keyRepeat().interval));
        if (pressed) parts.play(*pressed, Press::repeat);
    });
}

void PartsCtl::setEditing(bool on)
{
    if (std::exchange(isEditing, on) != on) release();
}

void PartsCtl::showDown(Id id, bool isDown)
{
    isDown ? void(down.insert(id)) : void(down.erase(id));
    update();
}

// --- the cells

PartsCtl::Id PartsCtl::idOf(int row) const { return editor.getSelection().getRecords()[static_cast<std::size_t>(row)]; }

int PartsCtl::getRowCount() const { return static_cast<int>(editor.getSelection().getRecords().size()); }

int PartsCtl::getColumns() const { return getRowCount() / JOYSTICKS / parts.lines; }

QString PartsCtl::getRowName(int row) const { return editor.getRecords().describe(idOf(row)); }

QRect PartsCtl::getRowPlace(int row) const
{
    const GdiManager& gdi = gui.getGdiManager();
    const int columns = getColumns();
    const int perJoystick = getRowCount() / JOYSTICKS;
    const double wide = (width() / gdi.getScale() - GAP) / JOYSTICKS;
    const double high = height() / gdi.getScale() / parts.lines;
    const int part = row % perJoystick;
    const double left = row / perJoystick * (wide + GAP) + part % columns * wide / columns;
    const double top = part / columns * high;
    const QPoint corner(gdi.px(left), gdi.px(top));
    return {corner, QPoint(gdi.px(left + wide / columns - CELL_GAP), gdi.px(top + high - CELL_GAP)) - QPoint(1, 1)};
}

int PartsCtl::rowAt(const QPoint& point) const
{
    for (int row = 0; row < getRowCount(); ++row)
        if (getRowPlace(row).contains(point)) return row;
    return -1;
}

bool PartsCtl::isRowSelected(int row) const { return editor.getSelection().isSelected(idOf(row)); }

int PartsCtl::getCurrentRow() const
{
    const auto& records = editor.getSelection().getRecords();
    const auto current = editor.getSelection().getCurrent();
    const auto found = current ? std::ranges::find(records, *current) : records.end();
    return found == records.end() ? -1 : static_cast<int>(found - records.begin());
}

void PartsCtl::selectRow(int row) { editor.getSelection().select({idOf(row)}); }

// --- the mouse

void PartsCtl::mousePressEvent(QMouseEvent* event)
{
    const int row = rowAt(event->position().toPoint());
    if (event->button() != Qt::LeftButton || row < 0) return;
    if (isEditing || !parts.play) {
        editor.getSelection().click(idOf(row), event->modifiers());
        return editor.setOpen(true);
    }
    release();
    pressed = idOf(row);
    parts.play(*pressed, Press::down);
    repeat.start(static_cast<int>(keyRepeat().delay));
}

void PartsCtl::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) release();
}

void PartsCtl::release()
{
    repeat.stop();
    if (const auto id = std::exchange(pressed, std::nullopt)) parts.play(*id, Press::up);
}

void PartsCtl::mouseMoveEvent(QMouseEvent* event) { showHelp(rowAt(event->position().toPoint())); }

void PartsCtl::showHelp(int row)
{
    if (std::exchange(helpedRow, row) != row && row >= 0) gui.displayHelp(getRowName(row).toStdString());
}

/// Opens the settings, and then the menu of the section.
void PartsCtl::contextMenuEvent(QContextMenuEvent* event)
{
    if (const int row = rowAt(event->pos()); row >= 0) editor.getSelection().clickForMenu(idOf(row));
    editor.isOpen() ? editor.showMenu(*this, event->globalPos()) : editor.setOpen(true);
}

// --- the keys

void PartsCtl::keyPressEvent(QKeyEvent* event)
{
    Selection& selection = editor.getSelection();
    const auto current = selection.getCurrent();
    if (Forms::RecordEditor::commandOf(*event) && current && selection.getSelected().empty())
        selection.select({*current});
    event->setAccepted(moveTo(event->key(), event->modifiers() & ~Qt::KeypadModifier) || editor.useKey(*event));
}

/// Up and down, to another line of the same joystick.
bool PartsCtl::moveTo(int key, Qt::KeyboardModifiers modifiers)
{
    const int row = getCurrentRow();
    if ((key != Qt::Key_Up && key != Qt::Key_Down) || row < 0 || parts.lines == 1) return false;
    const int target = row + (key == Qt::Key_Up ? -getColumns() : getColumns());
    const int perJoystick = getRowCount() / JOYSTICKS;
    if (target >= 0 && target < getRowCount() && target / perJoystick == row / perJoystick)
        editor.getSelection().moveTo(idOf(target), modifiers);
    return true;
}

void PartsCtl::focusInEvent(QFocusEvent* event)
{
    QWidget::focusInEvent(event);
    update();
}

void PartsCtl::focusOutEvent(QFocusEvent* event)
{
    QWidget::focusOutEvent(event);
    update();
}

/// A release of the mouse may be lost elsewhere.
bool PartsCtl::event(QEvent* event)
{
    if (event->type() == QEvent::WindowDeactivate) release();
    if (event->type() == QEvent::Leave) helpedRow = -1;
    return QWidget::event(event);
}

void PartsCtl::hideEvent(QHideEvent* event)
{
    release();
    QWidget::hideEvent(event);
}

// --- drawing

void PartsCtl::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    for (int row = 0; row < getRowCount(); ++row) paintCell(painter, row);
}

/// A selected cell has a frame, the current one the ring of the focus.
void PartsCtl::paintCell(QPainter& painter, int row) const
{
    const GdiManager& gdi = gui.getGdiManager();
    const Id id = idOf(row);
    const QRect place = getRowPlace(row);
    const QString caption = parts.captionOf(id);
    const Role fill = down.contains(id)   ? Role::selectedButton
                      : caption.isEmpty() ? Role::background
                                          : Role::selectedCell;
    painter.fillRect(place, gdi.getColour(fill));
    Look::drawFrame(painter, gdi, place, true);
    const QRect inside = place.adjusted(gdi.px(4), gdi.px(2), -gdi.px(3), -gdi.px(2));
    const QColor ink = down.contains(id) ? Look::inkOn(gdi.getColour(fill)) : gdi.getColour(Role::text);
    painter.setFont(gdi.getFont(FontRole::font9));
    painter.setPen(caption.isEmpty() && !down.contains(id) ? gdi.getColour(Role::label) : ink);
    painter.drawText(inside, Qt::AlignLeft | (parts.lines > 1 ? Qt::AlignTop : Qt::AlignVCenter), parts.labelOf(id));
    const int used = parts.lines > 1 ? 0 : painter.fontMetrics().horizontalAdvance(parts.labelOf(id)) + gdi.px(4);
    if (painter.fontMetrics().horizontalAdvance(caption) > inside.width() - used)
        painter.setFont(gdi.getFont(FontRole::font3));
    painter.setPen(ink);
    painter.drawText(inside.adjusted(used, 0, 0, 0),
                     Qt::AlignRight | (parts.lines > 1 ? Qt::AlignBottom : Qt::AlignVCenter),
                     painter.fontMetrics().elidedText(caption, Qt::ElideRight, inside.width() - used + 1));
    if (isRowSelected(row)) {
        painter.setPen(QPen(gdi.getColour(Role::frame), gdi.px(2)));
        painter.drawRect(place.adjusted(gdi.px(1), gdi.px(1), -gdi.px(1), -gdi.px(1)));
    }
    if (hasFocus() && row == getCurrentRow()) Look::drawFocus(painter, gdi, place);
}
}  // namespace Gui::Joystick
