#include "host/window/Frame.h"

#include <QCloseEvent>
#include <QLinearGradient>
#include <QPainter>
#include <QTimer>
#include <QWindow>
#include <chrono>
#include <utility>

#include "host/window/Colours.h"
#include "host/window/Icon.h"
#include "host/window/TitleBar.h"

namespace Host
{
namespace
{
constexpr int EDGE = 3;  // logical pixels
constexpr QSize FIRST_SIZE(104, 33);

// An X server refuses the focus to whoever asks with a time from before the last change. A window that was not used for
// long has such a one, and learns the present time from its first attempt.
constexpr auto UNTIL_THE_TIME_IS_KNOWN = std::chrono::milliseconds(100);
}  // namespace

Frame::Frame(std::function<void()> closeRequested)
    : requestClose(std::move(closeRequested)), content(new QWidget(this)), title(new TitleBar(this)), inside(FIRST_SIZE)
{
    setWindowTitle(QStringLiteral("Orvane 3"));
    setWindowIcon(icon());
    setWindowFlags(Qt::Window | Qt::FramelessWindowHint | Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint |
                   Qt::WindowSystemMenuHint | Qt::WindowTitleHint);
    fit();
}

void Frame::setBorder(Border newBorder)
{
    if (newBorder == border) return;
    border = newBorder;
    setFlag(Qt::FramelessWindowHint, border == Border::own);
    fit();
}

void Frame::setAlwaysOnTop(bool on) { setFlag(Qt::WindowStaysOnTopHint, on); }

/// An open window keeps what it is and where: made anew it would lose the focus, and with it the keys that are down.
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
    activateWindow();
    QTimer::singleShot(UNTIL_THE_TIME_IS_KNOWN, this, [this] {
        if (!isActiveWindow()) activateWindow();
    });
}

void Frame::windowResized(int width, int height)
{
    inside = QSize(width, height);
    fit();
}

void Frame::fit()
{
    const bool own = border == Border::own;
    const int top = own ? EDGE + TitleBar::HEIGHT : 0;
    const int edge = own ? EDGE : 0;
    title->setVisible(own);
    title->setGeometry(edge, edge, inside.width(), TitleBar::HEIGHT);
    content->setGeometry({{edge, top}, inside});
    setFixedSize(inside.width() + 2 * edge, top + inside.height() + edge);
}

void Frame::moveWindow(const RelativeFixedValue& x, const RelativeFixedValue& y)
{
    move(static_cast<int>(x.appliedTo(pos().x())), static_cast<int>(y.appliedTo(pos().y())));
}

/// Metal: light from above.
void Frame::paintEvent(QPaintEvent*)
{
    if (border != Border::own) return;
    QLinearGradient metal(0, 0, 0, height());
    metal.setColorAt(0, Colours::LIGHT_METAL);
    metal.setColorAt(1, Colours::DARK_METAL);
    QPainter(this).fillRect(rect(), metal);
}

void Frame::closeEvent(QCloseEvent* event)
{
    event->ignore();
    requestClose();
}
}  // namespace Host
