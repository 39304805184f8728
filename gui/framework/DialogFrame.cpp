#include "gui/framework/DialogFrame.h"

#include <QAbstractButton>
#include <QDialog>
#include <QEvent>
#include <QLinearGradient>
#include <QMouseEvent>
#include <QPainter>
#include <QWindow>

#include "gui/framework/GdiManager.h"
#include "gui/framework/Look.h"

namespace Gui
{
namespace
{
constexpr int EDGE = 4;  // logical pixels, as all of these
constexpr int TITLE = 24;
constexpr int MARGIN = 8;

/// Draws a cross.
class CloseButton final : public QAbstractButton
{
public:
    CloseButton(const GdiManager& manager, QWidget* parent) : QAbstractButton(parent), gdi(manager)
    {
        setAccessibleName(tr("Close"));
        setFocusPolicy(Qt::NoFocus);  // Escape does it
    }

private:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(gdi.getColour(isDown() ? GdiManager::Role::text : GdiManager::Role::label), gdi.px(1)));
        const int inset = gdi.px(MARGIN);
        const QRectF sign = QRectF(rect()).adjusted(inset, inset, -inset, -inset);
        painter.drawLine(sign.topLeft(), sign.bottomRight());
        painter.drawLine(sign.topRight(), sign.bottomLeft());
    }

    const GdiManager& gdi;
};
}  // namespace

void DialogFrame::addTo(QDialog& dialog, const GdiManager& manager)
{
    if (dialog.windowFlags().testFlag(Qt::FramelessWindowHint)) return;
    const auto flags = dialog.windowFlags() | Qt::FramelessWindowHint;
    dialog.overrideWindowFlags(flags);
    if (QWindow* window = dialog.windowHandle()) window->setFlags(flags);
    new DialogFrame(dialog, manager);
}

DialogFrame::DialogFrame(QDialog& dialog, const GdiManager& manager)
    : QWidget(&dialog), gdi(manager), close(new CloseButton(manager, this))
{
    const int edge = gdi.px(EDGE);
    dialog.setContentsMargins(edge, edge + titleHeight(), edge, edge);
    dialog.installEventFilter(this);
    connect(close, &QAbstractButton::clicked, &dialog, &QDialog::reject);
    resize(dialog.size());
    lower();
}

int DialogFrame::titleHeight() const { return gdi.px(TITLE); }

bool DialogFrame::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() == QEvent::Resize) resize(static_cast<QWidget*>(object)->size());
    if (event->type() == QEvent::WindowTitleChange) update();
    return false;
}

void DialogFrame::resizeEvent(QResizeEvent*)
{
    const int side = titleHeight();
    close->setGeometry(width() - gdi.px(EDGE) - side, gdi.px(EDGE), side, side);
}

void DialogFrame::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const int edge = gdi.px(EDGE);
    Look::drawMetal(painter, rect());
    painter.fillRect(rect().adjusted(edge, edge, -edge, -edge), gdi.getColour(GdiManager::Role::background));
    painter.setPen(gdi.getColour(GdiManager::Role::label));
    painter.setFont(gdi.getFont(GdiManager::FontRole::font7));
    const int left = edge + gdi.px(MARGIN);
    const QRect room(left, edge, close->x() - left, titleHeight());
    painter.drawText(room, Qt::AlignVCenter | Qt::AlignLeft,
                     painter.fontMetrics().elidedText(window()->windowTitle(), Qt::ElideRight, room.width()));
}

void DialogFrame::mousePressEvent(QMouseEvent* event)
{
    grip = event->globalPosition().toPoint() - window()->pos();
    if (QWindow* handle = window()->windowHandle()) handle->startSystemMove();
}

/// Moves the dialog where the desktop does not.
void DialogFrame::mouseMoveEvent(QMouseEvent* event)
{
    if (event->buttons().testFlag(Qt::LeftButton)) window()->move(event->globalPosition().toPoint() - grip);
}
}  // namespace Gui
