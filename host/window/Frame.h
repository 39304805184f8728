#pragma once

#include <QWidget>
#include <functional>

#include "api/ParentWindow.h"

namespace Host
{
class TitleBar;

/// The window on the desktop, which contains the backend's window. It has the size of that window plus its own border
/// with a title bar, or the desktop's border, as far as there is room on the desktop. Its side edges change the scale,
/// its bottom edge the height; maximised and full screen it asks for the largest scale that fits, at least 100 percent.
/// It stores nothing. The GUI thread.
class Frame final : public QWidget, public Gui::ParentWindow
{
public:
    enum class Border { own, desktop };

    /// `requestClose` is called when the user closes the window, which stays open.
    explicit Frame(std::function<void()> requestClose);

    /// The user dragged a side edge: the scale in percent.
    std::function<void(int percent)> onScale;
    /// The user dragged the bottom edge, or it gave way to other screens: the height of the content, 0 for its natural
    /// one.
    std::function<void(int height)> onHeight;
    /// The room has changed, so another scale may fit.
    std::function<void()> onRefit;
    /// The user wants the small window, or the screens back.
    std::function<void()> onToggleCompact;

    // Before it is shown or at any time afterwards
    void setBorder(Border border);

    /// Raises the window above the others and restores it if it was minimised.
    void raiseAboveAll();

    void toggleMaximised();
    void toggleFullScreen();

    QWidget* getWidget() override { return content; }
    void windowResized(int width, int height) override;
    int fitScale(int percent, int width, int height) override;
    void heightChosen(int height) override;
    void moveWindow(const RelativeFixedValue& x, const RelativeFixedValue& y) override;
    void keysPlayChanged(bool on) override;
    void alwaysOnTopChanged(bool on) override { setFlag(Qt::WindowStaysOnTopHint, on); }
    void useSkinBorderChanged(bool on) override { setBorder(on ? Border::own : Border::desktop); }
    void documentChanged(const std::string& fileName) override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    enum class Edge { none, left, right, bottom };

    void chooseHeight(int height);
    void activate(int attempts, int timesActive);
    void fit();
    void placeContent();
    void keepReachable();
    Edge edgeAt(const QPoint& point) const;
    void drag(const QPoint& global);
    bool fillsScreen() const { return isMaximized() || isFullScreen(); }
    QSize getRoom() const;
    QMargins getBorder() const;
    void setFlag(Qt::WindowType flag, bool on);

    const std::function<void()> closeRequested;
    QWidget* content;  // children of the frame
    TitleBar* title;
    QSize inside;          // the natural size of the content at the present scale
    QSize natural;         // the same at 100 percent
    int chosenHeight = 0;  // by the user, without the border; 0 for the natural one
    Edge dragged = Edge::none;
    QPoint grip;         // where the drag began
    QRect gripGeometry;  // and the window at that time
    bool isFitting = false;
    bool keysPlay = true;
    Border border = Border::own;
};
}  // namespace Host
