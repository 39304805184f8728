#include "gui/framework/Panel.h"

#include <algorithm>
#include <cassert>

#include "gui/framework/GdiManager.h"

namespace Gui
{
Panel::Panel(const GdiManager& manager) : gdi(manager)
{
    setVisible(false);
    setFixedSize(0, 0);
}

Panel::Panel(Panel* parent) : QWidget(parent), gdi(parent->gdi), parentPanel(parent)
{
    setVisible(false);
    setFixedSize(0, 0);
    assert(parent->childPanels.size() < MOST_CHILDREN);
    parent->childPanels.push_back(this);
}

Panel::~Panel()
{
    for (Panel* child : childPanels) child->parentPanel = nullptr;
    if (parentPanel != nullptr) std::erase(parentPanel->childPanels, this);
}

void Panel::moveAbove(Panel& other)
{
    assert(other.parentPanel == parentPanel);
    auto& column = parentPanel->childPanels;
    std::erase(column, this);
    column.insert(std::ranges::find(column, &other), this);

    // Qt orders only controls that Tab visits.
    QWidget* before = nullptr;
    bool isReached = false;
    std::vector<QWidget*> controls;
    for (QWidget* next = window()->nextInFocusChain(); next != window(); next = next->nextInFocusChain()) {
        if ((next->focusPolicy() & Qt::TabFocus) == 0) continue;
        isReached |= other.isAncestorOf(next);
        if (isAncestorOf(next))
            controls.push_back(next);
        else if (!isReached)
            before = next;
    }
    if (!isReached || before == nullptr) return;
    for (QWidget* const control : controls) {
        setTabOrder(before, control);
        before = control;
    }
}

void Panel::show(bool visible)
{
    if (visible == shown) return;
    shown = visible;
    setVisible(visible);
    if (parentPanel != nullptr) parentPanel->layOut();
}

void Panel::setPanelSize(QSize size)
{
    ownSize = size;
    takeSize(gdi.px(size));
}

void Panel::takeSize(QSize pixels)
{
    if (pixels == size()) return;
    setFixedSize(pixels);
    if (parentPanel != nullptr && shown) parentPanel->layOut();
}

bool Panel::hasShownChild() const { return std::ranges::any_of(childPanels, &Panel::isShown); }

void Panel::place(QWidget& control, const QRect& rectangle)
{
    const auto known = std::ranges::find(placed, &control, [](const auto& each) { return each.first.data(); });
    if (known != placed.end())
        known->second = rectangle;
    else
        placed.emplace_back(&control, rectangle);
    control.setGeometry(gdi.px(rectangle));
}

void Panel::rescale()
{
    for (const auto& [control, rectangle] : placed)
        if (control) control->setGeometry(gdi.px(rectangle));
    for (Panel* child : childPanels) child->rescale();
    scaleChanged();
    hasShownChild() ? layOut() : takeSize(gdi.px(ownSize));
}

void Panel::layOut()
{
    const QSize column = placeChildren();
    columnResized(column);
    takeSize(column);
}

/// One below the other with a gap between two, and the size they need.
QSize Panel::placeChildren()
{
    int bottom = 0;
    int width = 0;
    bool first = true;
    for (Panel* child : childPanels) {
        if (!child->shown) continue;
        if (!first) bottom += gdi.px(GAP);
        first = false;
        child->move(0, bottom);
        bottom += child->height();
        width = std::max(width, child->width());
    }
    return {width, bottom};
}
}  // namespace Gui
