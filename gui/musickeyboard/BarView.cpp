#include "gui/musickeyboard/BarView.h"

#include <QKeyEvent>
#include <QScrollBar>
#include <algorithm>
#include <cmath>

#include "gui/framework/GdiManager.h"
#include "gui/musickeyboard/BarList.h"

namespace Gui::Output
{
namespace
{
constexpr int BAR_WIDTH = 10;  // logical pixels
}

BarView::BarView(const GdiManager& manager, BarList& bars, int highest, QWidget* parent)
    : QScrollArea(parent), gdi(manager), list(bars), most(highest), bar(new QScrollBar(Qt::Vertical, this))
{
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWidget(&list);
    bar->setFocusPolicy(Qt::NoFocus);
    bar->hide();
    list.onReveal = [this](const QRect& place) { ensureVisible(0, place.center().y(), 0, place.height() / 2 + 1); };
    QScrollBar* const own = verticalScrollBar();
    connect(own, &QScrollBar::rangeChanged, this, [this, own](int lowest, int highestValue) {
        bar->setRange(lowest, highestValue);
        bar->setPageStep(own->pageStep());
        bar->setSingleStep(own->singleStep());
        bar->setVisible(highestValue > lowest);
    });
    connect(own, &QScrollBar::valueChanged, bar, &QScrollBar::setValue);
    connect(bar, &QScrollBar::valueChanged, own, &QScrollBar::setValue);
}

int BarView::getLogicalHeight() const
{
    return std::min(most, static_cast<int>(std::lround(list.height() / gdi.getScale())));
}

void BarView::resizeEvent(QResizeEvent* event)
{
    QScrollArea::resizeEvent(event);
    const int wide = gdi.px(BAR_WIDTH);
    bar->setGeometry(width() - wide, 0, wide, height());
}

/// They are left to playing.
void BarView::keyPressEvent(QKeyEvent* event) { event->ignore(); }
}  // namespace Gui::Output
