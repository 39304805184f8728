#include "gui/screens/display/LogView.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextOption>
#include <algorithm>
#include <utility>

#include "gui/framework/GdiManager.h"
#include "gui/framework/Properties.h"

namespace Gui::Display
{
namespace
{
constexpr double TABS[] = {260, 300, 480, 680};  // port, channel, event, first and second value
constexpr qreal MARGIN = 4;

QStringList linesOf(const std::string& text)
{
    QString lines = QString::fromStdString(text);
    lines.remove('\r');
    if (lines.endsWith('\n')) lines.chop(1);
    return lines.split('\n');
}

/// What the values of an event mean, if it says so in brackets: "60 (C4)".
QString meaningOf(const QString& value)
{
    const auto open = value.indexOf(QLatin1String(" ("));
    return open < 0 ? QString() : value.mid(open + 2).chopped(1);
}

/// A line of the log as a few words: port, channel, event, first and second value become "C4  100  ch 1".
QString inFewWords(const QString& line)
{
    const EventColumns columns(line);
    if (!columns.isEvent()) return line;
    const QString meaning = meaningOf(columns.first);
    QStringList words{meaning.isEmpty() ? columns.event : meaning};
    if (meaning.isEmpty()) words << columns.first;
    words << (columns.event == QLatin1String("Note Off") ? QStringLiteral("off") : columns.second);
    if (!columns.channel.isEmpty()) words << QStringLiteral("ch ") + columns.channel;
    words.removeAll(QString());
    return words.join(QStringLiteral("  "));
}

bool isModifier(int key)
{
    return key == Qt::Key_Shift || key == Qt::Key_Control || key == Qt::Key_Alt || key == Qt::Key_Meta;
}

bool movesInText(int key) { return key >= Qt::Key_Home && key <= Qt::Key_PageDown; }
}  // namespace

LogView::LogView(GdiManager& manager, QWidget* parent) : QPlainTextEdit(parent), gdi(manager)
{
    setReadOnly(true);
    setUndoRedoEnabled(false);
    setMaximumBlockCount(MOST_LINES);
    setFocusPolicy(Qt::TabFocus);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    Property::set(*this, Property::TEXT, true);
    Property::setFont(*this, GdiManager::FontRole::font4);
    rescale();
}

void LogView::addText(const std::string& text)
{
    const QStringList added = linesOf(text);
    for (const QString& line : added) keep(line);
    waiting = std::min(waiting + static_cast<std::size_t>(added.size()), lines.size());
    if (!paused) showLast(std::exchange(waiting, 0));
}

void LogView::setText(const std::string& text)
{
    lines.clear();
    waiting = 0;
    for (const QString& line : linesOf(text)) keep(line);
    showAll();
}

void LogView::keep(const QString& line)
{
    lines.push_back(line);
    if (lines.size() > MOST_LINES) lines.pop_front();
}

void LogView::showLast(std::size_t count)
{
    QStringList passing;
    for (auto line = lines.end() - static_cast<std::ptrdiff_t>(count); line != lines.end(); ++line)
        if (filter.passes(*line)) passing << *line;
    if (passing.isEmpty()) return;
    appendPlainText(passing.join('\n'));
    if (large) viewport()->update();
}

/// All that did not come during the pause.
void LogView::showAll()
{
    QStringList passing;
    for (auto line = lines.begin(); line != lines.end() - static_cast<std::ptrdiff_t>(waiting); ++line)
        if (filter.passes(*line)) passing << *line;
    setPlainText(passing.join('\n'));
    verticalScrollBar()->setValue(verticalScrollBar()->maximum());
}

void LogView::setFilter(EventFilter newFilter)
{
    filter = std::move(newFilter);
    showAll();
}

void LogView::setPaused(bool on)
{
    paused = on;
    if (!paused) showLast(std::exchange(waiting, 0));
}

void LogView::empty()
{
    lines.clear();
    waiting = 0;
    clear();
}

void LogView::copyText()
{
    const bool isSelected = textCursor().hasSelection();
    if (isSelected)
        copy();
    else
        QApplication::clipboard()->setText(toPlainText());
}

void LogView::setLarge(bool on)
{
    if (on == large) return;
    large = on;
    setVerticalScrollBarPolicy(large ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAlwaysOn);
    viewport()->update();
}

QString LogView::getNewestEvent() const { return inFewWords(document()->lastBlock().text()); }

void LogView::rescale()
{
    QTextOption option = document()->defaultTextOption();
    QList<QTextOption::Tab> tabs;
    for (const double place : TABS) tabs.append(QTextOption::Tab(gdi.px(place), QTextOption::LeftTab));
    option.setTabs(tabs);
    document()->setDefaultTextOption(option);
    document()->setDocumentMargin(MARGIN);
}

void LogView::paintEvent(QPaintEvent* event)
{
    if (large)
        paintNewestEvent();
    else
        QPlainTextEdit::paintEvent(event);
}

/// In one line, as large as it fits.
void LogView::paintNewestEvent()
{
    QPainter painter(viewport());
    const QRectF room = viewport()->rect().adjusted(4, 4, -4, -4);
    const QString text = getNewestEvent();
    QFont font = gdi.getFont(GdiManager::FontRole::large);
    const QFontMetricsF metrics(font);
    const qreal fitting = std::min(
        {1.0, room.width() / std::max(1.0, metrics.horizontalAdvance(text)), room.height() / metrics.height()});
    font.setPixelSize(std::max(8, static_cast<int>(font.pixelSize() * fitting)));
    painter.fillRect(viewport()->rect(), palette().color(QPalette::Base));
    painter.setFont(font);
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(room, Qt::AlignCenter | Qt::TextSingleLine, text);
}

void LogView::keyPressEvent(QKeyEvent* event)
{
    const bool own = isModifier(event->key()) || movesInText(event->key()) || event->matches(QKeySequence::Copy) ||
                     event->matches(QKeySequence::SelectAll);
    if (own) return QPlainTextEdit::keyPressEvent(event);
    if (onOtherKey) onOtherKey(*event);
}

/// With the focus, the selection can be copied at once.
void LogView::mouseReleaseEvent(QMouseEvent* event)
{
    QPlainTextEdit::mouseReleaseEvent(event);
    if (textCursor().hasSelection()) setFocus(Qt::MouseFocusReason);
}
}  // namespace Gui::Display
