#include "host/window/TitleBar.h"

#include <QAbstractButton>
#include <QIcon>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QWindow>

#include "host/window/Colours.h"

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

TitleBar::TitleBar(QWidget* frame)
    : QWidget(frame),
      minimise(new SignButton(this, &minimiseSign, tr("Minimise"))),
      close(new SignButton(this, &closeSign, tr("Close")))
{
    connect(minimise, &QAbstractButton::clicked, frame, &QWidget::showMinimized);
    connect(close, &QAbstractButton::clicked, frame, &QWidget::close);
}

void TitleBar::resizeEvent(QResizeEvent*)
{
    close->setGeometry(width() - BUTTON, 0, BUTTON, HEIGHT);
    minimise->setGeometry(width() - 2 * BUTTON, 0, BUTTON, HEIGHT);
}

void TitleBar::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), Colours::GROUND);
    const QRect sign(MARGIN, (HEIGHT - SIGN) / 2, SIGN, SIGN);
    window()->windowIcon().paint(&painter, sign);
    const int left = sign.right() + MARGIN;
    const QRect room(left, 0, minimise->x() - left, HEIGHT);
    painter.setPen(Colours::BRIGHT);
    painter.drawText(room, Qt::AlignVCenter | Qt::AlignLeft,
                     fontMetrics().elidedText(window()->windowTitle(), Qt::ElideRight, room.width()));
}

void TitleBar::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) return;
    grip = event->globalPosition().toPoint() - window()->pos();
    window()->windowHandle()->startSystemMove();
}

/// Moves the window where the desktop does not.
void TitleBar::mouseMoveEvent(QMouseEvent* event)
{
    if (event->buttons().testFlag(Qt::LeftButton)) window()->move(event->globalPosition().toPoint() - grip);
}
}  // namespace Host
