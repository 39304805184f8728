#include "gui/screens/layers/LayerGeometry.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace Gui::Layers
{
using Backend::Layers::Layer;
using Output::KeyOutlines;

namespace
{
constexpr int GRIP_OUTSIDE = 5;
constexpr int GRIP_INSIDE = 2;

template <class Distance>
int nearestNote(Distance&& distance)
{
    int nearest = 0;
    for (int note = 1; note < KeyOutlines::NOTES; ++note)
        if (distance(note) < distance(nearest)) nearest = note;
    return nearest;
}
}  // namespace

int LayerGeometry::px(double logical) const { return static_cast<int>(std::lround(logical * scale)); }

QRect LayerGeometry::rowPlace(int row) const
{
    const int top = px(TOP + PITCH * row);
    return {0, top, keys.getWidth(), px(TOP + PITCH * row + HEIGHT) - top};
}

QRect LayerGeometry::barOf(int row, const Layer& layer) const
{
    const int low = layer.minNote.getNumber();
    const int high = std::max(low, layer.maxNote.getNumber());
    const QRect place = rowPlace(row);
    return {keys.leftEdge(low), place.top(), keys.rightEdge(high) - keys.leftEdge(low), place.height()};
}

QRect LayerGeometry::buttonOf(const QRect& bar) const
{
    return {bar.left(), bar.top(), std::min(px(BUTTON), bar.width() / 2), bar.height()};
}

int LayerGeometry::rowAt(int y, int count) const
{
    for (int row = 0; row < count; ++row) {
        const int end = px(TOP + PITCH * (row + 1));
        if (y >= 0 && y < end) return row;
    }
    return -1;
}

LayerGeometry::Part LayerGeometry::partAt(int row, const Layer& layer, const QPoint& point) const
{
    const QRect bar = barOf(row, layer);
    if (point.y() < bar.top() || point.y() > bar.bottom()) return Part::row;
    const auto isNear = [&](int edge, int before, int after) {
        return point.x() >= edge - px(before) && point.x() < edge + px(after);
    };
    if (isNear(bar.left(), GRIP_OUTSIDE, GRIP_INSIDE)) return Part::lowEnd;
    if (isNear(bar.right() + 1, GRIP_INSIDE, GRIP_OUTSIDE)) return Part::highEnd;
    if (!bar.contains(point)) return Part::row;
    return buttonOf(bar).contains(point) ? Part::button : Part::bar;
}

int LayerGeometry::lowNoteAt(int x) const
{
    return nearestNote([&](int note) { return std::abs(keys.leftEdge(note) - x); });
}

int LayerGeometry::highNoteAt(int x) const
{
    return nearestNote([&](int note) { return std::abs(keys.rightEdge(note) - 1 - x); });
}
}  // namespace Gui::Layers
