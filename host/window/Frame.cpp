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

// An X server refuses the focus if the time stamp of the request is older than the last change of focus. Qt's time
// stamp is old if the window was not used for a while; the events of an attempt bring the present one, on a busy
// machine late.
constexpr auto UNTIL_THE_TIME_IS_KNOWN = std::chrono::milliseconds(100);
constexpr int ATTEMPTS = 20;
}  // namespace

Frame::Frame(std::function<void()> requestClose)
    : closeRequested(std::move(requestClose)), content(new QWidget(this)), title(new TitleBar(this)), inside(FIRST_SIZE)
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
    activate(ATTEMPTS);
}

void Frame::activate(int attempts)
{
    activateWindow();
    if (attempts == 1) return;
    QTimer::singleShot(UNTIL_THE_TIME_IS_KNOWN, this, [this, attempts] {
        if (!isActiveWindow()) activate(attempts - 1);
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

/// A metal border, lit from above.
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
    closeRequested();
}
}  // namespace Host
