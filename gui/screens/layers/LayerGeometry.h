#pragma once

#include <QRect>

#include "backend/model/Layer.h"
#include "gui/musickeyboard/KeyOutlines.h"

namespace Gui::Layers
{
/// Where the bars of the layers are, a row for each, and which part of one is under a point. A bar covers the keys from
/// the lowest to the highest note of its layer. Pixels of a scale, from the top left corner of the list.
class LayerGeometry
{
public:
    static constexpr int TOP = 2;      ///< logical pixels above the first bar
    static constexpr int PITCH = 16;   ///< from bar to bar
    static constexpr int HEIGHT = 11;  ///< of a bar
    static constexpr int BUTTON = 14;  ///< the width of its button

    enum class Part {
        row,     ///< beside the bar
        button,  ///< at its left end
        lowEnd,  ///< a few pixels on both sides of the edge, which are dragged
        highEnd,
        bar
    };

    explicit LayerGeometry(const Output::KeyOutlines& outlines, double factor = 1) : keys(outlines), scale(factor) {}

    /// As wide as the keyboard.
    QRect rowPlace(int row) const;
    /// That of a layer that takes no note, because its lowest is above its highest, covers the key of the lowest.
    QRect barOf(int row, const Backend::Layers::Layer& layer) const;
    /// Never more than half of the bar.
    QRect buttonOf(const QRect& bar) const;

    /// The row at that height, of `count`; -1 for none.
    int rowAt(int y, int count) const;
    /// What is at that point of the row, if `layer` is the row's.
    Part partAt(int row, const Backend::Layers::Layer& layer, const QPoint& point) const;

    // The note whose edge is the nearest
    int lowNoteAt(int x) const;
    int highNoteAt(int x) const;

private:
    int px(double logical) const;

    const Output::KeyOutlines& keys;
    const double scale;
};
}  // namespace Gui::Layers
