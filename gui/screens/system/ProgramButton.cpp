#include "gui/screens/system/ProgramButton.h"

#include <QContextMenuEvent>
#include <QPainter>

#include "gui/framework/Look.h"

namespace Gui::System
{
using Role = GdiManager::Role;
using FontRole = GdiManager::FontRole;

namespace
{
constexpr int TEXT_MARGIN = 8;
constexpr int NAME_HEIGHT = 42;
}  // namespace

ProgramButton::ProgramButton(const GdiManager& manager, QWidget* parent) : QAbstractButton(parent), gdi(manager)
{
    setFocusPolicy(Qt::TabFocus);
}

void ProgramButton::showProgram(int programNumber, const QString& programName, const QString& line)
{
    number = programNumber;
    name = programName;
    below = line;
    setToolTip(name);
    update();
    accessibleValueChanged(*this, getAccessibleValue());
}

void ProgramButton::showSetEntry(const QString& noteText, const QString& nextText)
{
    note = noteText;
    next = nextText;
}

QString ProgramButton::getAccessibleValue() const
{
    QStringList parts{QString::number(number + 1) + ' ' + name, note, next};
    parts.removeAll(QString());
    return parts.join(QStringLiteral(". "));
}

/// A name that is too long is drawn smaller, down to half the size, and then cut off.
void ProgramButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QRect inside = rect().adjusted(gdi.px(TEXT_MARGIN), 0, -gdi.px(TEXT_MARGIN), 0);
    QRect line(inside.left(), inside.top(), inside.width(), gdi.px(NAME_HEIGHT));
    QFont font = gdi.getFont(FontRole::stageName);
    painter.setFont(font);
    painter.setPen(gdi.getColour(Role::label));
    const QString digits = QString::number(number + 1);
    painter.drawText(line, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine, digits);
    line.setLeft(line.left() + painter.fontMetrics().horizontalAdvance(digits) + 2 * gdi.px(TEXT_MARGIN));

    const int needed = painter.fontMetrics().horizontalAdvance(name);
    if (needed > line.width())
        font.setPixelSize(std::max(font.pixelSize() / 2, font.pixelSize() * line.width() / needed));
    painter.setFont(font);
    painter.setPen(gdi.getColour(Role::text));
    painter.drawText(line, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                     painter.fontMetrics().elidedText(name, Qt::ElideRight, line.width()));

    line.setTop(line.bottom());
    line.setBottom(inside.bottom());
    paintLine(painter, line);
    if (hasFocus()) Look::drawFocus(painter, gdi, rect());
}

/// The note may take two thirds of the line.
void ProgramButton::paintLine(QPainter& painter, QRect line) const
{
    const auto draw = [&painter](const QRect& room, const QString& text) {
        painter.drawText(room, Qt::AlignTop | Qt::AlignLeft | Qt::TextSingleLine,
                         painter.fontMetrics().elidedText(text, Qt::ElideRight, room.width()));
    };
    painter.setFont(gdi.getFont(FontRole::font9));
    if (!note.isEmpty()) {
        const int needed = painter.fontMetrics().horizontalAdvance(note + ' ');
        QRect room = line;
        room.setWidth(std::min(needed, line.width() * 2 / 3));
        painter.setPen(gdi.getColour(Role::text));
        draw(room, note);
        line.setLeft(room.right() + 2 * gdi.px(TEXT_MARGIN));
    }
    painter.setPen(gdi.getColour(Role::label));
    draw(line, next.isEmpty() ? below : next + QStringLiteral("   ") + below);
}

void ProgramButton::contextMenuEvent(QContextMenuEvent* event)
{
    if (onMenu) onMenu(event->globalPos());
}
}  // namespace Gui::System
