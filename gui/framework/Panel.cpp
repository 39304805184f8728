#include "gui/framework/Panel.h"

#include <algorithm>
#include <cassert>

namespace Gui
{
Panel::Panel(Panel* parent) : QWidget(parent), parentPanel(parent)
{
    setVisible(false);
    setFixedSize(0, 0);
    if (parent == nullptr) return;
    assert(parent->childPanels.size() < MOST_CHILDREN);
    parent->childPanels.push_back(this);
}

Panel::~Panel()
{
    for (Panel* child : childPanels) child->parentPanel = nullptr;
    if (parentPanel != nullptr) std::erase(parentPanel->childPanels, this);
}

void Panel::show(bool visible)
{
    if (visible == shown) return;
    shown = visible;
    setVisible(visible);
    if (parentPanel != nullptr) parentPanel->layOut();
}

void Panel::setPanelSize(QSize newSize)
{
    if (newSize == size()) return;
    setFixedSize(newSize);
    if (parentPanel != nullptr && shown) parentPanel->layOut();
}

bool Panel::hasShownChild() const { return std::ranges::any_of(childPanels, &Panel::isShown); }

void Panel::layOut()
{
    const QSize column = placeChildren();
    columnResized(column);
    setPanelSize(column);
}

/// One below the other with a gap between two, and the size they need.
QSize Panel::placeChildren()
{
    int bottom = 0;
    int width = 0;
    bool first = true;
    for (Panel* child : childPanels) {
        if (!child->shown) continue;
        if (!first) bottom += GAP;
        first = false;
        child->move(0, bottom);
        bottom += child->height();
        width = std::max(width, child->width());
    }
    return {width, bottom};
}
}  // namespace Gui
