#pragma once

#include <QPainterPath>
#include <QPoint>
#include <array>

namespace Gui::Output
{
/// The places of the 128 keys of the music keyboard: it is drawn and played by them, and the layers and zones below it
/// are aligned with them. Pixels from the top left corner of a control as wide as a screen, at a scale. A note outside
/// 0 to 127 counts as the nearest one inside.
class KeyOutlines
{
public:
    static constexpr int NOTES = 128;

    /// 1 for 100 percent, where the keyboard is 960 pixels wide, with 5 pixels free at both ends.
    explicit KeyOutlines(double scale = 1);

    static bool isBlack(int note);

    int getWidth() const { return width; }
    int getWhiteHeight() const { return whiteHeight; }  ///< measured from the top
    int getBlackHeight() const { return blackHeight; }

    /// The edges of the whole key; the right one is the first pixel after it. Both increase from note to note.
    int leftEdge(int note) const;
    int rightEdge(int note) const;

    /// The shape of the key; that of a white key leaves out the black keys beside it. Outlines do not overlap.
    const QPainterPath& keyOutline(int note) const;
    QRect keyRectangle(int note) const;

    /// The key at that point, or -1.
    int noteAt(const QPoint& point) const;

private:
    struct Key {
        int left = 0;
        int right = 0;
        QPainterPath outline;
    };

    QRect backOf(int note) const;
    QPainterPath makeOutline(int note) const;
    const Key& at(int note) const;

    int width;
    int whiteHeight;
    int blackHeight;
    std::array<Key, NOTES> keys;
};
}  // namespace Gui::Output
