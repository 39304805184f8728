#include "gui/screens/display/LogView.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextOption>
#include <algorithm>

#include "gui/framework/GdiManager.h"
#include "gui/framework/Properties.h"

namespace Gui::Display
{
namespace
{
constexpr double TABS[] = {260, 300, 480, 680};  // port, channel, event, first and second value
constexpr qreal MARGIN = 4;

QString linesOf(const std::string& text)
{
    QString lines = QString::fromStdString(text);
    lines.remove('\r');
    if (lines.endsWith('\n')) lines.chop(1);
    return lines;
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
    enum Column { port, channel, event, first, second };
    const QStringList columns = line.split('\t');
    if (columns.size() <= event) return line;
    const QString meaning = meaningOf(columns.value(first));
    QStringList words{meaning.isEmpty() ? columns[event] : meaning};
    if (meaning.isEmpty() && columns.size() > first) words << columns[first];
    if (columns[event] == QLatin1String("Note Off"))
        words << QStringLiteral("off");
    else if (columns.size() > second)
        words << columns[second];
    if (!columns[channel].isEmpty()) words << QStringLiteral("ch ") + columns[channel];
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
    appendPlainText(linesOf(text));
    if (large) viewport()->update();
}

void LogView::setText(const std::string& text)
{
    setPlainText(linesOf(text));
    verticalScrollBar()->setValue(verticalScrollBar()->maximum());
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
