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
/// The last lines of the log, to be read and copied. It follows the newest line as long as that is in sight. It takes
/// the keyboard only while something is selected with the mouse or when Tab leads there, and then none but the keys
/// that move in it and copy.
class LogView final : public QPlainTextEdit
{
public:
    static constexpr int MOST_LINES = 4000;

    LogView(GdiManager& manager, QWidget* parent);

    /// A key that is not for the log.
    std::function<void(QKeyEvent& event)> onOtherKey;

    /// Lines in UTF-8, each with CR LF at its end.
    void addText(const std::string& text);
    /// The same in place of what is there; shows the end of it.
    void setText(const std::string& text);

    void setLargeFont(bool on);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void takeFont();

    GdiManager& gdi;
    bool large = false;
};
}  // namespace Gui::Display
