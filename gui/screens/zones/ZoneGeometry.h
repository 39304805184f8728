#pragma once

#include <QRect>

#include "backend/model/Zone.h"
#include "gui/musickeyboard/KeyOutlines.h"

namespace Gui::Zones
{
/// Where the bars of the zones are, a row for each, and what the mouse does to them. A bar covers the keys on which its
/// notes sound, so it moves with the transposition. Pixels of a scale, from the top left corner of the list.
class ZoneGeometry
{
public:
    static constexpr int PITCH = 18;   ///< logical pixels from row to row
    static constexpr int HEIGHT = 13;  ///< of a bar
    static constexpr int OCTAVE = 12;  ///< semitones

    explicit ZoneGeometry(const Output::KeyOutlines& outlines, double factor = 1) : keys(outlines), scale(factor) {}

    QRect rowPlace(int row) const;
    /// Empty for a zone without notes. A transposed note outside 0 to 127 counts as the nearest one inside.
    QRect barOf(int row, const Backend::Zones::Zone& zone) const;
    /// The row at that height, also one that does not exist yet; -1 above the first one.
    int rowAt(int y) const;

    /// The semitones of a drag over that many pixels to the right: an octave for 41 logical pixels with the left
    /// button, a semitone for 4 with the right one.
    int semitonesOf(int pixels, Qt::MouseButton button) const;
    /// The transposition with which the bar reaches `x`, from where it is in octaves. It goes no further than to the
    /// end of the keyboard.
    int transposeToReach(int row, const Backend::Zones::Zone& zone, int x) const;

private:
    const Output::KeyOutlines& keys;
    const double scale;
};

/// `transpose` limited to what a zone can have.
int limitedTranspose(int transpose);
}  // namespace Gui::Zones
