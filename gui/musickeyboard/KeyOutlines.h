#pragma once

#include <QPainterPath>
#include <QPoint>

/// The places of the 128 keys of the music keyboard: it is drawn and played by them, and the layers and zones below it
/// are aligned with them. Logical pixels from the top left corner of a control as wide as a screen. A note outside 0 to
/// 127 counts as the nearest one inside.
namespace Gui::Output::KeyOutlines
{
inline constexpr int NOTES = 128;
inline constexpr int WIDTH = 760;        ///< of the whole keyboard, with 5 pixels free at both ends
inline constexpr int WHITE_HEIGHT = 60;  ///< measured from the top
inline constexpr int BLACK_HEIGHT = 37;

bool isBlack(int note);

/// The edges of the whole key; the right one is the first pixel after it. Both increase from note to note.
int leftEdge(int note);
int rightEdge(int note);

/// The shape of the key; that of a white key leaves out the black keys beside it. Outlines do not overlap.
const QPainterPath& keyOutline(int note);
QRect keyRectangle(int note);

/// The key at that point, or -1.
int noteAt(const QPoint& point);
}  // namespace Gui::Output::KeyOutlines
