#include "host/window/TitleBar.h"

#include <QAbstractButton>
#include <QIcon>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QWindow>

#include "host/window/Colours.h"
#include "host/window/Frame.h"

namespace Host
{
namespace
{
constexpr int BUTTON = 22;
constexpr int MARGIN = 6;
constexpr int SIGN = 14;
constexpr qreal STROKE = 1.5;

QPainterPath minimiseSign(const QRectF& square)
{
    QPainterPath path(square.bottomLeft());
    path.lineTo(square.bottomRight());
    return path;
}

QPainterPath maximiseSign(const QRectF& square)
{
    QPainterPath path;
    path.addRect(square);
    return path;
}

/// A small window.
QPainterPath compactSign(const QRectF& square)
{
    QPainterPath path;
    path.addRect(square.left(), square.center().y(), square.width(), square.height() / 2);
    return path;
}

QPainterPath closeSign(const QRectF& square)
{
    QPainterPath path(square.topLeft());
    path.lineTo(square.bottomRight());
    path.moveTo(square.topRight());
    path.lineTo(square.bottomLeft());
    return path;
}

/// A button that shows a sign alone, bright under the pointer.
class SignButton final : public QAbstractButton
{
public:
    using Draw = QPainterPath (*)(const QRectF&);

    SignButton(QWidget* parent, Draw drawSign, const QString& name) : QAbstractButton(parent), draw(drawSign)
    {
        setAccessibleName(name);
        setToolTip(name);
        setFocusPolicy(Qt::NoFocus);  // the keyboard plays; the desktop has shortcuts for both buttons
        setAttribute(Qt::WA_Hover);
    }

private:
    void paintEvent(QPaintEvent*) override
    {
        constexpr qreal INSET = 7;
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        if (isDown()) painter.fillRect(rect(), Colours::DIM);
        painter.setPen(QPen(underMouse() ? Colours::BRIGHT : Colours::LINE, STROKE));
        painter.drawPath(draw(QRectF(rect()).adjusted(INSET, INSET, -INSET, -INSET)));
    }

    const Draw draw;
};
}  // namespace

TitleBar::TitleBar(Frame& window)
    : QWidget(&window),
      frame(window),
      compact(new SignButton(this, &compactSign, tr("Small window"))),
      minimise(new SignButton(this, &minimiseSign, tr("Minimise"))),
      maximise(new SignButton(this, &maximiseSign, tr("Maximise"))),
      close(new SignButton(this, &closeSign, tr("Close")))
{
    connect(compact, &QAbstractButton::clicked, this, [this] {
        if (frame.onToggleCompact) frame.onToggleCompact();
    });
    connect(minimise, &QAbstractButton::clicked, &frame, &QWidget::showMinimized);
    connect(maximise, &QAbstractButton::clicked, &frame, &Frame::toggleMaximised);
    connect(close, &QAbstractButton::clicked, &frame, &QWidget::close);
}

std::vector<QAbstractButton*> TitleBar::getButtons() const { return {close, maximise, minimise, compact}; }

void TitleBar::showMaximised(bool on)
{
    maximise->setAccessibleName(on ? tr("Restore") : tr("Maximise"));
    maximise->setToolTip(maximise->accessibleName());
}

void TitleBar::showKeysPlay(bool on)
{
    keysPlay = on;
    update();
}

/// From the right; those without room are left out.
void TitleBar::resizeEvent(QResizeEvent*)
{
    int left = width();
    for (QAbstractButton* button : getButtons()) {
        left -= BUTTON;
        button->setGeometry(left, 0, BUTTON, HEIGHT);
        button->setVisible(left >= 0);
    }
}

void TitleBar::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), Colours::GROUND);
    const QRect sign(MARGIN, (HEIGHT - SIGN) / 2, SIGN, SIGN);
    window()->windowIcon().paint(&painter, sign);
    const int left = sign.right() + MARGIN;
    const QRect room(left, 0, compact->x() - left, HEIGHT);
    painter.setPen(keysPlay ? Colours::BRIGHT : Colours::LINE);
    painter.drawText(room, Qt::AlignVCenter | Qt::AlignLeft,
                     fontMetrics().elidedText(window()->windowTitle(), Qt::ElideRight, room.width()));
}

void TitleBar::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) return;
    grip = event->globalPosition().toPoint() - window()->pos();
    window()->windowHandle()->startSystemMove();
}

void TitleBar::mouseDoubleClickEvent(QMouseEvent*) { frame.toggleMaximised(); }

/// Moves the window where the desktop does not.
void TitleBar::mouseMoveEvent(QMouseEvent* event)
{
    if (event->buttons().testFlag(Qt::LeftButton)) window()->move(event->globalPosition().toPoint() - grip);
}
}  // namespace Host
