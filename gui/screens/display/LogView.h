#pragma once

#include <QPlainTextEdit>
#include <functional>
#include <string>

namespace Gui
{
class GdiManager;
}

namespace Gui::Display
{
/// The last lines of the log, to be read and copied, or in large letters the newest event alone, which can be read from
/// a distance. The log scrolls with the newest line while that is visible. It has the
/// focus only after lines were selected with the mouse or after Tab, and uses only the keys that move in it and copy.
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
    void paintNewestEvent();

    GdiManager& gdi;
    bool large = false;
};
}  // namespace Gui::Display
