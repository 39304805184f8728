#include "host/window/Frame.h"

#include <QAction>
#include <QCloseEvent>
#include <QLinearGradient>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QTimer>
#include <QWindow>
#include <algorithm>
#include <chrono>
#include <utility>

#include "host/window/Colours.h"
#include "host/window/Icon.h"
#include "host/window/TitleBar.h"

namespace Host
{
namespace
{
constexpr int EDGE = 4;   // logical pixels
constexpr int ALL = 100;  // percent
constexpr int LEAST = 25;
constexpr int MOST = 400;
constexpr QSize FIRST_SIZE(104, 33);

// An X server refuses the focus if the time stamp of the request is older than the last change of focus. Qt's time
// stamp is old if the window was not used for a while; the events of an attempt bring the present one, on a busy
// machine late. Qt may report for 100 ms that a window is active which has lost the focus.
constexpr auto UNTIL_THE_TIME_IS_KNOWN = std::chrono::milliseconds(100);
constexpr int ATTEMPTS = 20;
constexpr int TIMES_ACTIVE = 3;  // in a row
}  // namespace

Frame::Frame(std::function<void()> requestClose)
    : closeRequested(std::move(requestClose)),
      content(new QWidget(this)),
      title(new TitleBar(*this)),
      inside(FIRST_SIZE)
{
    setWindowTitle(QStringLiteral("Orvane 3"));
    setWindowIcon(icon());
    setWindowFlags(Qt::Window | Qt::FramelessWindowHint | Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint |
                   Qt::WindowMaximizeButtonHint | Qt::WindowSystemMenuHint | Qt::WindowTitleHint);
    setMouseTracking(true);
    auto* fullScreen = new QAction(tr("Full screen"), this);
    fullScreen->setShortcut(Qt::SHIFT | Qt::Key_F11);
    connect(fullScreen, &QAction::triggered, this, &Frame::toggleFullScreen);
    addAction(fullScreen);
    fit();
}

void Frame::documentChanged(const std::string& fileName)
{
    setWindowTitle(QString::fromStdString(fileName) + QStringLiteral(" - Orvane 3"));
    title->update();
}

void Frame::setBorder(Border newBorder)
{
    if (newBorder == border) return;
    border = newBorder;
    setFlag(Qt::FramelessWindowHint, border == Border::own);
    if (onRefit) onRefit();
    fit();
}

/// Changes the open window: a new one would lose the focus, and with it the keys that are down.
void Frame::setFlag(Qt::WindowType flag, bool on)
{
    if (windowFlags().testFlag(flag) == on) return;
    auto flags = windowFlags();
    flags.setFlag(flag, on);
    overrideWindowFlags(flags);
    if (QWindow* window = windowHandle()) window->setFlags(flags);
}

void Frame::raiseAboveAll()
{
    setWindowState(windowState() & ~Qt::WindowMinimized);
    raise();
    activate(ATTEMPTS, 0);
}

/// `timesActive`: how often in a row the window was reported to be active.
void Frame::activate(int attempts, int timesActive)
{
    if (timesActive == 0) activateWindow();
    if (attempts == 1 || timesActive == TIMES_ACTIVE) return;
    QTimer::singleShot(UNTIL_THE_TIME_IS_KNOWN, this,
                       [=, this] { activate(attempts - 1, isActiveWindow() ? timesActive + 1 : 0); });
}

void Frame::windowResized(int width, int newHeight)
{
    const bool isOther = inside.height() != newHeight && !isFitting;
    inside = QSize(width, newHeight);
    if (isOther && chosenHeight > newHeight) chooseHeight(0);
    fit();
}

/// The room for the content on the desktop.
QSize Frame::getRoom() const
{
    const QMargins around = getBorder();
    const QSize all = isFullScreen() ? screen()->size() : screen()->availableGeometry().size();
    return all - QSize(around.left() + around.right(), around.top() + around.bottom());
}

void Frame::chooseHeight(int height)
{
    chosenHeight = height;
    if (onHeight) onHeight(height);
}

void Frame::heightChosen(int height)
{
    chosenHeight = height;
    fit();
}

/// A window is never wider than the desktop: what is beside it could not be reached.
int Frame::fitScale(int percent, int width, int newHeight)
{
    natural = QSize(width, newHeight);
    if (natural.isEmpty()) return percent;
    const QSize room = getRoom();
    const int widest = std::max(1, ALL * room.width() / natural.width());
    if (!fillsScreen()) return std::min(percent, std::max(widest, LEAST));
    return std::min(std::max(ALL, ALL * room.height() / natural.height()), std::min(widest, MOST));
}

QMargins Frame::getBorder() const
{
    if (border != Border::own || isFullScreen()) return {};
    return {EDGE, EDGE + TitleBar::HEIGHT, EDGE, EDGE};
}

/// Takes the natural size, the height that the user chose, or that of the desktop where there is no more.
void Frame::fit()
{
    if (fillsScreen()) return placeContent();
    const QMargins around = getBorder();
    const int wanted = chosenHeight > 0 ? chosenHeight : inside.height();
    const int tallest = std::max(1, getRoom().height());
    isFitting = true;
    resize(QSize(inside.width(), std::min(wanted, tallest)).grownBy(around));
    isFitting = false;
    placeContent();
    keepReachable();
}

/// It may have been left on a larger desktop.
void Frame::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    keepReachable();
}

/// After it has grown, its lower and right ends are on the desktop.
void Frame::keepReachable()
{
    if (!isVisible()) return;
    const QRect room = screen()->availableGeometry();
    const QPoint corner(std::max(room.left(), std::min(x(), room.right() + 1 - width())),
                        std::max(room.top(), std::min(y(), room.bottom() + 1 - height())));
    if (corner.x() < x() || corner.y() < y()) move(corner);
}

void Frame::placeContent()
{
    const QMargins around = getBorder();
    const bool own = border == Border::own && !isFullScreen();
    title->setVisible(own);
    const QRect room = rect().marginsRemoved(around);
    title->setGeometry(room.left(), EDGE, room.width(), TitleBar::HEIGHT);
    content->setGeometry(room);
}

/// The desktop resized it.
void Frame::resizeEvent(QResizeEvent*)
{
    placeContent();
    if (isFitting || fillsScreen() || border == Border::own || natural.isEmpty()) return;
    const QSize now = content->size();
    if (now.height() != inside.height()) chooseHeight(now.height());
    if (now.width() != inside.width() && onScale) onScale(ALL * now.width() / natural.width());
}

void Frame::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::WindowStateChange) return;
    title->showMaximised(isMaximized());
    if (onRefit) onRefit();
    fit();
}

void Frame::toggleMaximised() { isMaximized() ? showNormal() : showMaximized(); }

void Frame::toggleFullScreen() { isFullScreen() ? showNormal() : showFullScreen(); }

void Frame::keysPlayChanged(bool on)
{
    if (on == keysPlay) return;
    keysPlay = on;
    title->showKeysPlay(on);
    update();
}

// --- dragging an edge

Frame::Edge Frame::edgeAt(const QPoint& point) const
{
    if (border != Border::own || fillsScreen()) return Edge::none;
    if (point.y() >= height() - EDGE) return Edge::bottom;
    if (point.x() < EDGE) return Edge::left;
    return point.x() >= width() - EDGE ? Edge::right : Edge::none;
}

void Frame::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) return event->ignore();
    dragged = edgeAt(event->position().toPoint());
    grip = event->globalPosition().toPoint();
    gripGeometry = geometry();
}

void Frame::mouseMoveEvent(QMouseEvent* event)
{
    if (dragged != Edge::none) return drag(event->globalPosition().toPoint());
    const Edge edge = edgeAt(event->position().toPoint());
    setCursor(edge == Edge::none ? Qt::ArrowCursor : edge == Edge::bottom ? Qt::SizeVerCursor : Qt::SizeHorCursor);
}

void Frame::mouseReleaseEvent(QMouseEvent*) { dragged = Edge::none; }

void Frame::leaveEvent(QEvent*) { unsetCursor(); }

void Frame::drag(const QPoint& global)
{
    const QMargins around = getBorder();
    if (dragged == Edge::bottom) {
        chooseHeight(std::max(1, gripGeometry.height() + global.y() - grip.y() - around.top() - around.bottom()));
        return fit();
    }
    if (natural.isEmpty() || !onScale) return;
    const int by = dragged == Edge::right ? global.x() - grip.x() : grip.x() - global.x();
    onScale(ALL * (gripGeometry.width() + by - around.left() - around.right()) / natural.width());
    if (dragged == Edge::left) move(gripGeometry.right() + 1 - width(), gripGeometry.top());
}

void Frame::moveWindow(const RelativeFixedValue& x, const RelativeFixedValue& y)
{
    move(static_cast<int>(x.appliedTo(pos().x())), static_cast<int>(y.appliedTo(pos().y())));
}

/// A metal border, lit from above; dim while the keys do not play.
void Frame::paintEvent(QPaintEvent*)
{
    if (border != Border::own) return;
    QLinearGradient metal(0, 0, 0, height());
    metal.setColorAt(0, keysPlay ? Colours::LIGHT_METAL : Colours::DARK_METAL);
    metal.setColorAt(1, keysPlay ? Colours::DARK_METAL : Colours::GROUND);
    QPainter(this).fillRect(rect(), metal);
}

void Frame::closeEvent(QCloseEvent* event)
{
    event->ignore();
    closeRequested();
}
}  // namespace Host
