#pragma once

#include <QWidget>
#include <functional>

#include "gui/ParentWindow.h"

namespace Host
{
class TitleBar;

/// The window on the desktop, around what the backend shows. It is as large as that, moves where it is told, and has
/// a border of its own with a title bar, or the desktop's. It remembers nothing. The GUI thread.
class Frame final : public QWidget, public Gui::ParentWindow
{
public:
    enum class Border { own, desktop };

    /// Closing it calls `closeRequested` and leaves it open.
    explicit Frame(std::function<void()> closeRequested);

    // Before it is shown or at any time after
    void setBorder(Border border);
    void setAlwaysOnTop(bool on);

    /// In front of the others, and no icon any more.
    void raiseAboveAll();

    QWidget* getWidget() override { return content; }
    void windowResized(int width, int height) override;
    void moveWindow(const RelativeFixedValue& x, const RelativeFixedValue& y) override;
    void alwaysOnTopChanged(bool on) override { setAlwaysOnTop(on); }
    void useSkinBorderChanged(bool on) override { setBorder(on ? Border::own : Border::desktop); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void fit();
    void setFlag(Qt::WindowType flag, bool on);

    const std::function<void()> requestClose;
    QWidget* content;  // these belong to the frame
    TitleBar* title;
    QSize inside;
    Border border = Border::own;
};
}  // namespace Host
