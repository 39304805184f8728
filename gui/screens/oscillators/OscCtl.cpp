#include "gui/screens/oscillators/OscCtl.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QPainter>
#include <algorithm>
#include <utility>

#include "api/GuiContext.h"
#include "gui/forms/RecordEditor.h"
#include "gui/framework/Look.h"
#include "gui/framework/Properties.h"
#include "gui/screens/oscillators/OscStrip.h"

namespace Gui::Oscillators
{
using Role = GdiManager::Role;

OscCtl::OscCtl(GuiContext& owner, OscRecords& shownRecords, Forms::RecordEditor& recordEditor, Listener& user,
               QWidget* parent)
    : QWidget(parent), context(owner), records(shownRecords), editor(recordEditor), listener(user)
{
    setAccessibleName(tr("Oscillators"));
    setFocusPolicy(Qt::TabFocus);
    Property::setHelp(*this, tr("Oscillators: waves that are sent as MIDI. A click selects, with Shift a range, with "
                                "Ctrl one more; those that are selected start, stop and change together. Space starts "
                                "and stops, Insert adds, Delete deletes. Right click or Enter: settings."));
}

// --- the strips

/// While it is hidden, nothing is made or drawn.
void OscCtl::follow()
{
    if (!isVisible()) return;
    QWidget* before = this;
    for (Id id = 0; id < getRowCount(); ++id) {
        OscStrip& strip = id < std::ssize(strips) ? *strips[static_cast<std::size_t>(id)] : makeStrip(id);
        strip.showOscillator(records.at(id), records.describe(id));
        const auto value = values.find(id);
        strip.showValue(value == values.end() ? std::nullopt : std::optional(value->second));
        strip.setGeometry(getRowPlace(static_cast<int>(id)));
        strip.show();
        for (QWidget* const part : strip.findChildren<QWidget*>()) {
            if (part->focusPolicy() == Qt::NoFocus) continue;
            setTabOrder(before, part);
            before = part;
        }
    }
    for (std::size_t row = records.size(); row < strips.size(); ++row) strips[row]->hide();
    changed.clear();
    markStrips();
    update();
    if (hasFocus()) currentRowChanged(*this, *this);
}

OscStrip& OscCtl::makeStrip(Id id)
{
    auto* const strip = new OscStrip(context, this);
    strip->onPlaying = [this, id](bool on) { listener.setPlaying(id, on); };
    strip->onTurn = [this, id](int speed) { listener.turnSpeed(id, speed); };
    strip->onSpeed = [this, id](int speed) { listener.setSpeed(id, speed); };
    strip->onMode = [this, id](TimeIntervalType mode) { listener.setSpeedMode(id, mode); };
    strips.push_back(strip);
    return *strip;
}

void OscCtl::markStrips()
{
    const Forms::Selection& selection = editor.getSelection();
    for (Id id = 0; id < std::min<Id>(getRowCount(), static_cast<Id>(strips.size())); ++id)
        strips[static_cast<std::size_t>(id)]->setMarks(
            {.selected = selection.isSelected(id), .current = hasFocus() && selection.isCurrent(id)});
}

void OscCtl::setValue(Id id, int value)
{
    values[id] = value;
    if (isVisible() && std::ranges::find(changed, id) == changed.end()) changed.push_back(id);
}

void OscCtl::forgetValue(Id id)
{
    values.erase(id);
    std::erase(changed, id);
}

bool OscCtl::showValues()
{
    if (changed.empty()) return false;
    for (const Id id : std::exchange(changed, {}))
        if (records.has(id) && id < std::ssize(strips)) strips[static_cast<std::size_t>(id)]->showValue(values.at(id));
    return true;
}

// --- the rows

QString OscCtl::getRowName(int row) const
{
    const auto value = values.find(row);
    const QString name = records.describe(row);
    return value == values.end() ? name : tr("%1, value %2").arg(name, QString::number(value->second));
}

QRect OscCtl::getRowPlace(int row) const
{
    return context.getGdiManager().px(QRect(0, row * OscStrip::HEIGHT, OscStrip::WIDTH, OscStrip::HEIGHT));
}

bool OscCtl::isRowSelected(int row) const { return editor.getSelection().isSelected(row); }

int OscCtl::getCurrentRow() const { return static_cast<int>(editor.getSelection().getCurrent().value_or(-1)); }

void OscCtl::selectRow(int row) { editor.getSelection().select({row}); }

OscCtl::Id OscCtl::findAt(const QPoint& point) const
{
    for (int row = 0; row < getRowCount(); ++row)
        if (getRowPlace(row).contains(point)) return row;
    return -1;
}

// --- the picture

int OscCtl::getLogicalHeight() const { return OscStrip::HEIGHT * std::max(1, getRowCount()); }

void OscCtl::paintEvent(QPaintEvent*)
{
    if (getRowCount() > 0) return;
    const GdiManager& gdi = context.getGdiManager();
    QPainter painter(this);
    painter.setPen(gdi.getColour(Role::labelDisabled));
    painter.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter, tr("No oscillators. Add makes one."));
    if (hasFocus()) Look::drawFocus(painter, gdi, rect());
}

void OscCtl::showEvent(QShowEvent* event)
{
    follow();
    QWidget::showEvent(event);
}

// --- the mouse

/// A click on the only one that is selected unselects it.
void OscCtl::mousePressEvent(QMouseEvent* event)
{
    const Id id = findAt(event->position().toPoint());
    if (event->button() != Qt::LeftButton || id < 0) return QWidget::mousePressEvent(event);
    Forms::Selection& selection = editor.getSelection();
    if (event->modifiers() == Qt::NoModifier && selection.getSelected() == std::vector{id})
        selection.click(id, Qt::ControlModifier);
    else
        selection.click(id, event->modifiers());
}

/// Opens the settings of the oscillator, and then the menu of the section.
void OscCtl::contextMenuEvent(QContextMenuEvent* event)
{
    const Id id = findAt(event->pos());
    if (id >= 0) editor.getSelection().clickForMenu(id);
    id < 0 || editor.isOpen() ? editor.showMenu(*this, event->globalPos()) : editor.setOpen(true);
}

// --- keys

void OscCtl::keyPressEvent(QKeyEvent* event) { event->setAccepted(useKey(*event)); }

bool OscCtl::useKey(const QKeyEvent& event)
{
    Forms::Selection& selection = editor.getSelection();
    const auto current = selection.getCurrent();
    const bool hasModifier = (event.modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier;
    if (!hasModifier && event.key() == Qt::Key_Space) {
        if (current) togglePlaying();
        return true;
    }
    if (!hasModifier && event.key() == Qt::Key_Insert) {
        listener.addOscillator();
        return true;
    }
    if (Forms::RecordEditor::commandOf(event) && current && selection.getSelected().empty())
        selection.select({*current});
    return editor.useKey(event);
}

void OscCtl::togglePlaying()
{
    const Id current = *editor.getSelection().getCurrent();
    if (records.has(current)) listener.setPlaying(current, !records.at(current).playing);
}

void OscCtl::focusInEvent(QFocusEvent* event)
{
    QWidget::focusInEvent(event);
    markStrips();
    update();
}

void OscCtl::focusOutEvent(QFocusEvent* event)
{
    QWidget::focusOutEvent(event);
    markStrips();
    update();
}
}  // namespace Gui::Oscillators
