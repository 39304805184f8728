#pragma once

#include <QPlainTextEdit>
#include <cstddef>
#include <deque>
#include <functional>
#include <string>

#include "gui/screens/display/EventFilter.h"

namespace Gui
{
class GdiManager;
}

namespace Gui::Display
{
/// The last lines of the log, to be read and copied, or in large letters the newest event alone, which can be read from
/// a distance. A filter chooses which lines are shown. The log scrolls with the newest line while that is visible. It
/// has the focus only after lines were selected with the mouse or after Tab, and uses only the keys that move in it and
/// copy.
class LogView final : public QPlainTextEdit
{
public:
    static constexpr int MOST_LINES = 4000;

    LogView(GdiManager& manager, QWidget* parent);

    /// A key that the log does not use.
    std::function<void(QKeyEvent& event)> onOtherKey;

    /// Lines in UTF-8, each with CR LF at its end.
    void addText(const std::string& text);
    /// Replaces the lines and scrolls to the end.
    void setText(const std::string& text);

    /// Lines that were left out are shown as well, if they pass now.
    void setFilter(EventFilter newFilter);
    /// What comes meanwhile is shown when it ends.
    void setPaused(bool on);
    /// Forgets all lines.
    void empty();
    /// What is selected, or else all that is shown, to the clipboard.
    void copyText();

    void setLarge(bool on);
    /// The scale has changed.
    void rescale();
    /// The newest event as it is shown in large letters: "C4  100  ch 1".
    QString getNewestEvent() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void keep(const QString& line);
    void showLast(std::size_t count);
    void showAll();
    void paintNewestEvent();

    GdiManager& gdi;
    std::deque<QString> lines;  // also those that are left out
    EventFilter filter;
    bool paused = false;
    std::size_t waiting = 0;  // the last ones, which came during the pause
    bool large = false;
};
}  // namespace Gui::Display
