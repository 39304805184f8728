#include "gui/musickeyboard/BarList.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QPaintEvent>
#include <QPainter>
#include <algorithm>
#include <cstdlib>
#include <utility>

#include "api/GuiContext.h"
#include "gui/framework/Look.h"

namespace Gui::Output
{
using Role = GdiManager::Role;

namespace
{
constexpr int PAGE = 8;  // rows
constexpr int GAP = 3;   // logical pixels, as the next ones
constexpr int LINE = 2;
constexpr int ARROW = 16;
constexpr int END = 16;  // from the end of the text at the right end to that of the bar

/// Lighter or darker than the fill in every skin.
QColor lightOn(const GdiManager& gdi, Role fill)
{
    constexpr int ENOUGH = 40;  // of 255
    const auto grey = [&](Role role) { return qGray(gdi.getColour(role).rgb()); };
    for (const Role light : {Role::text, Role::selectedButton})
        if (std::abs(grey(light) - grey(fill)) >= ENOUGH) return gdi.getColour(light);
    return gdi.getColour(Role::selectedCell);
}
}  // namespace

BarList::BarList(GuiContext& guiContext, QWidget* parent) : QWidget(parent), context(guiContext)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::TabFocus);
}

const GdiManager& BarList::getGdi() const { return context.getGdiManager(); }

void BarList::rescale()
{
    keys = KeyOutlines(getGdi().getScale());
    setFixedSize(keys.getWidth(), getGdi().px(getLogicalHeight()));
    update();
}

void BarList::rowsChanged()
{
    setFixedHeight(getGdi().px(getLogicalHeight()));
    setCurrentRow(current);
    update();
}

void BarList::setCurrentRow(int row)
{
    const int before = current;
    current = std::min(std::max(row, 0), getRowCount() - 1);
    if (current != before) update();
    currentRowChanged(*this, *this);
}

BarList::Notes BarList::getLitNotes(int row) const
{
    const auto index = static_cast<std::size_t>(row);
    return index < lit.size() ? lit[index] : Notes();
}

void BarList::setLitNotes(std::vector<Notes> notes)
{
    if (notes == lit) return;
    lit = std::move(notes);
    update();
}

// --- keys

void BarList::keyPressEvent(QKeyEvent* event)
{
    const auto modifiers = event->modifiers() & ~Qt::KeypadModifier;
    const int last = getRowCount() - 1;
    if (modifiers == Qt::NoModifier) switch (event->key()) {
            case Qt::Key_Up:
                return moveTo(current - 1);
            case Qt::Key_Down:
                return moveTo(current + 1);
            case Qt::Key_PageUp:
                return moveTo(std::max(current - PAGE, 0));
            case Qt::Key_PageDown:
                return moveTo(std::min(current + PAGE, last));
            case Qt::Key_Home:
                return moveTo(0);
            case Qt::Key_End:
                return moveTo(last);
            default:
                break;
        }
    event->setAccepted(useKey(*event));
}

void BarList::moveTo(int row)
{
    if (row < 0 || row >= getRowCount()) return;
    setCurrentRow(row);
    selectRow(row);
    if (onReveal) onReveal(getRowPlace(row));
}

/// That of the mouse is opened by its button.
void BarList::contextMenuEvent(QContextMenuEvent* event)
{
    if (event->reason() == QContextMenuEvent::Keyboard && current >= 0)
        showRowMenu(current, mapToGlobal(getRowPlace(current).center()));
}

void BarList::focusInEvent(QFocusEvent* event)
{
    QWidget::focusInEvent(event);
    setCurrentRow(current);
    if (onReveal && current >= 0) onReveal(getRowPlace(current));
    update();
}

void BarList::focusOutEvent(QFocusEvent* event)
{
    QWidget::focusOutEvent(event);
    update();
}

// --- drawing

/// The room of the focus ring: it lies around the bar where there is a gap.
QRect BarList::ringOf(const QRect& place) const
{
    const int around = getGdi().px(2);
    return place.adjusted(0, -around, 0, around).intersected(rect());
}

void BarList::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    painter.fillRect(event->rect(), getGdi().getColour(GdiManager::Role::background));
    if (getRowCount() == 0) {
        painter.setFont(getGdi().getFont(GdiManager::FontRole::font9));
        painter.setPen(getGdi().getColour(GdiManager::Role::label));
        painter.drawText(rect(), Qt::AlignCenter, getEmptyText());
    }
    paintLines(painter);
    for (int row = 0; row < getRowCount(); ++row) {
        const QRect place = getRowPlace(row);
        if (!event->region().intersects(ringOf(place))) continue;
        paintRow(painter, row);
        if (row == current && hasFocus()) Look::drawFocus(painter, getGdi(), ringOf(place));
    }
}

int BarList::middleOf(int note) const { return (keys.leftEdge(note) + keys.rightEdge(note)) / 2; }

/// From the key of each lit note down to the lowest bar in which it is lit, behind the bars.
void BarList::paintLines(QPainter& painter) const
{
    const int line = getGdi().px(LINE);
    Notes drawn;
    for (int row = getRowCount() - 1; row >= 0; --row) {
        const Notes notes = getLitNotes(row) & ~drawn;
        for (int note = 0; notes.any() && note < KeyOutlines::NOTES; ++note)
            if (notes[static_cast<std::size_t>(note)])
                painter.fillRect(QRect(middleOf(note) - line / 2, 0, line, getRowPlace(row).top()),
                                 getGdi().getColour(Role::text));
        drawn |= notes;
    }
}

/// The bar of a lit row has a line at its lower edge, and an arrow head below each key.
void BarList::paintArrows(QPainter& painter, const Bar& bar) const
{
    if (bar.lit.none()) return;
    const QColor colour = lightOn(getGdi(), bar.fill);
    const int line = getGdi().px(LINE);
    painter.fillRect(QRect(bar.place.left(), bar.place.bottom() + 1 - line, bar.place.width(), line), colour);
    const qreal size = getGdi().px(ARROW);
    painter.setClipRect(bar.place);
    for (int note = 0; note < KeyOutlines::NOTES; ++note) {
        if (!bar.lit[static_cast<std::size_t>(note)]) continue;
        const qreal top = bar.place.top() + (bar.place.height() - line - size) / 2;
        Look::drawTriangle(painter, {middleOf(note) - size / 2, top, size, size}, Look::Direction::down, colour);
    }
    painter.setClipping(false);
}

void BarList::paintBar(QPainter& painter, const Bar& bar) const
{
    const QRect& place = bar.place;
    const QColor colour = getGdi().getColour(bar.fill);
    painter.fillRect(place, colour);
    paintArrows(painter, bar);
    painter.setFont(getGdi().getFont(GdiManager::FontRole::font9));
    const auto widthOf = [&](const QString& text) { return painter.fontMetrics().horizontalAdvance(text); };
    const int gap = getGdi().px(GAP);
    const int end = bar.end.isEmpty() ? 0 : widthOf(bar.end) + getGdi().px(END) + gap;
    const bool hasText = widthOf(bar.text) <= place.width();
    const bool hasEnd = hasText && widthOf(bar.text) + 2 * end <= place.width();
    painter.setPen(Look::inkOn(colour));
    if (hasText) painter.drawText(place, Qt::AlignCenter | Qt::TextSingleLine, bar.text);
    if (hasEnd)
        painter.drawText(place.adjusted(0, 0, -getGdi().px(END), 0),
                         Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine, bar.end);

    QStringList beside;
    if (!hasText) beside << bar.text;
    if (!hasEnd && !bar.end.isEmpty()) beside << bar.end;
    if (beside.empty()) return;
    const QString text = beside.join(QStringLiteral("  "));
    const int right = place.right() + gap;
    const int left = right + widthOf(text) <= width() ? right : place.left() - bar.before - gap - widthOf(text);
    painter.setPen(getGdi().getColour(GdiManager::Role::label));
    painter.drawText(QRect(std::max(left, 0), place.top(), width(), place.height()),
                     Qt::AlignVCenter | Qt::TextSingleLine | Qt::TextDontClip, text);
}
}  // namespace Gui::Output
