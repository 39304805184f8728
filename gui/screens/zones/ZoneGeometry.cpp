#include "gui/screens/zones/ZoneGeometry.h"

#include <algorithm>
#include <cmath>

namespace Gui::Zones
{
using Backend::Zones::Zone;

namespace
{
constexpr int PIXELS_PER_OCTAVE = 41;
constexpr int PIXELS_PER_SEMITONE = 4;
constexpr int LIMIT = 127;
constexpr int HIGHEST_NOTE = 127;

Zone transposed(Zone zone, int transpose)
{
    zone.transpose = static_cast<std::int8_t>(transpose);
    return zone;
}
}  // namespace

int limitedTranspose(int transpose) { return std::clamp(transpose, -LIMIT, LIMIT); }

QRect ZoneGeometry::rowPlace(int row) const
{
    const auto edge = [this](int logical) { return static_cast<int>(std::lround(logical * scale)); };
    const int top = edge(PITCH * row);
    return {0, top, keys.getWidth(), edge(PITCH * row + HEIGHT) - top};
}

QRect ZoneGeometry::barOf(int row, const Zone& zone) const
{
    if (!zone.lowNote.isNote() || !zone.highNote.isNote()) return {};
    const QRect place = rowPlace(row);
    const int left = keys.leftEdge(zone.lowNote.getNumber() + zone.transpose);
    const int right = keys.rightEdge(zone.highNote.getNumber() + zone.transpose);
    return {left, place.top(), right - left, place.height()};
}

int ZoneGeometry::rowAt(int y) const { return y < 0 ? -1 : static_cast<int>(y / scale) / PITCH; }

int ZoneGeometry::semitonesOf(int pixels, Qt::MouseButton button) const
{
    const int logical = static_cast<int>(pixels / scale);
    return button == Qt::LeftButton ? logical / PIXELS_PER_OCTAVE * OCTAVE : logical / PIXELS_PER_SEMITONE;
}

int ZoneGeometry::transposeToReach(int row, const Zone& zone, int x) const
{
    const auto barAt = [&](int transpose) { return barOf(row, transposed(zone, transpose)); };
    int transpose = zone.transpose;
    if (barAt(transpose).isEmpty()) return transpose;
    if (x < barAt(transpose).left()) {
        while (x < barAt(transpose).left() && zone.lowNote.getNumber() + transpose > 0)
            transpose = limitedTranspose(transpose - OCTAVE);
    } else {
        while (x > barAt(transpose).right() && zone.highNote.getNumber() + transpose < HIGHEST_NOTE)
            transpose = limitedTranspose(transpose + OCTAVE);
    }
    return transpose;
}
}  // namespace Gui::Zones
