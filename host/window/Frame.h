#pragma once

#include <QWidget>
#include <functional>

#include "api/ParentWindow.h"

namespace Host
{
class TitleBar;

/// The window on the desktop, which contains the backend's window. It has the size of that window plus its own border
/// with a title bar, or the desktop's border. It stores nothing. The GUI thread.
class Frame final : public QWidget, public Gui::ParentWindow
{
public:
    enum class Border { own, desktop };

    /// `requestClose` is called when the user closes the window, which stays open.
    explicit Frame(std::function<void()> requestClose);

    // Before it is shown or at any time afterwards
    void setBorder(Border border);

    /// Raises the window above the others and restores it if it was minimised.
    void raiseAboveAll();

    QWidget* getWidget() override { return content; }
    void windowResized(int width, int height) override;
    void moveWindow(const RelativeFixedValue& x, const RelativeFixedValue& y) override;
    void alwaysOnTopChanged(bool on) override { setFlag(Qt::WindowStaysOnTopHint, on); }
    void useSkinBorderChanged(bool on) override { setBorder(on ? Border::own : Border::desktop); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void activate(int attempts);
    void fit();
    void setFlag(Qt::WindowType flag, bool on);

    const std::function<void()> closeRequested;
    QWidget* content;  // children of the frame
    TitleBar* title;
    QSize inside;
    Border border = Border::own;
};
}  // namespace Host
