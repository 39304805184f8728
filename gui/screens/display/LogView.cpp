#include "gui/screens/display/LogView.h"

#include <QKeyEvent>
#include <QScrollBar>
#include <QTextOption>
#include <algorithm>

#include "gui/framework/GdiManager.h"
#include "gui/framework/Properties.h"

namespace Gui::Display
{
namespace
{
constexpr qreal TABS[] = {200, 232, 390, 560};  // port, channel, event, first and second value
constexpr qreal TAB_OF_LARGE_FONT = 40;         // a gap between the columns
constexpr qreal MARGIN = 4;

QString linesOf(const std::string& text)
{
    QString lines = QString::fromStdString(text);
    lines.remove('\r');
    if (lines.endsWith('\n')) lines.chop(1);
    return lines;
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
    takeFont();
}

void LogView::addText(const std::string& text) { appendPlainText(linesOf(text)); }

void LogView::setText(const std::string& text)
{
    setPlainText(linesOf(text));
    verticalScrollBar()->setValue(verticalScrollBar()->maximum());
}

void LogView::setLargeFont(bool on)
{
    if (on == large) return;
    const QScrollBar& bar = *verticalScrollBar();
    const bool atEnd = bar.value() == bar.maximum();
    large = on;
    takeFont();
    if (atEnd) verticalScrollBar()->setValue(bar.maximum());
}

void LogView::takeFont()
{
    setFont(gdi.getFont(large ? GdiManager::FontRole::large : GdiManager::FontRole::font4));
    QTextOption option = document()->defaultTextOption();
    QList<QTextOption::Tab> tabs;
    if (!large)
        for (const qreal place : TABS) tabs.append(QTextOption::Tab(place, QTextOption::LeftTab));
    option.setTabs(tabs);
    option.setTabStopDistance(TAB_OF_LARGE_FONT);
    document()->setDefaultTextOption(option);
    document()->setDocumentMargin(large ? 0 : MARGIN);
}

/// The skin sets the font of every control; this one restores its own.
void LogView::changeEvent(QEvent* event)
{
    QPlainTextEdit::changeEvent(event);
    const auto role = large ? GdiManager::FontRole::large : GdiManager::FontRole::font4;
    if (event->type() == QEvent::FontChange && font() != gdi.getFont(role)) takeFont();
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
